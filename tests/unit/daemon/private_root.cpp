// SPDX-License-Identifier: MIT
#include "private_root.h"

#include "platform/cancellation_token.h"
#include "support/shell.h"

#include <QDir>

#include <unistd.h>

namespace tarnwick::test {

using namespace Qt::StringLiterals;

namespace {

constexpr auto standIn = R"sh(#!/bin/sh
called="${0##*/} $*"
echo "$called" >> /commands
[ "$called" != "$(cat /failing)" ] || { echo "refused: $called" >&2; exit 1; }
case ${0##*/} in
    launchctl|systemctl) exit 0 ;;
    *) exec "/usr/bin/${0##*/}" "$@" ;;
esac
)sh";

// $1 is the root, $2 the directory of temporary files, $3 the line.
constexpr auto enterByMounting = R"sh(
mount --bind /usr "$1/usr" && mount --bind "$2" "$1$2" &&
exec /usr/sbin/chroot "$1" /bin/sh -c "umask 022; PATH=/stand-ins; export PATH; exec /bin/sh -c \"\$1\"" - "$3"
)sh";

constexpr auto enterByTracing = R"sh(
exec proot -0 -r "$1" -b /usr -b "$2" -w / /bin/sh -c "umask 022; PATH=/stand-ins; export PATH; exec /bin/sh -c \"\$1\"" - "$3"
)sh";

bool succeeds(const CommandLine& command) {
    auto child = startChild(command, ChildProcess::Output::Discarded);
    using namespace std::chrono_literals;
    return child.waitForEnd(QDeadlineTimer(20s), 5ms, CancellationToken()) && child.hasSucceeded();
}

QStringList unshareArguments() {
    return geteuid() == 0 ? QStringList{u"-m"_s}
                          : QStringList{u"--user"_s, u"--map-root-user"_s, u"-m"_s};
}

bool canMount() {
    const QStringList mount{u"mount"_s, u"--bind"_s, u"/usr"_s, u"/usr"_s};
    return succeeds({u"/usr/bin/unshare"_s, unshareArguments() + mount});
}

bool canTrace() {
    return succeeds({u"/usr/bin/proot"_s, {u"/bin/true"_s}});
}

void write(const QString& path, const QByteArray& content, bool isExecutable = false) {
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        qFatal("cannot write into the private root");
    if (isExecutable)
        file.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
}

} // namespace

PrivateRoot::PrivateRoot() {
    const QDir root(directory_.path());
    for (const auto& folder :
         {u"usr"_s, u"dev"_s, u"stand-ins"_s, u"etc/systemd/system"_s, u"Library/LaunchDaemons"_s})
        root.mkpath(folder);
    root.mkpath(QDir::tempPath().mid(1));
    for (const auto& link : {u"bin"_s, u"lib"_s, u"lib64"_s, u"sbin"_s})
        QFile::link(u"usr/"_s + link, inside(u'/' + link));
    write(inside(u"/failing"_s), "");
    write(inside(u"/commands"_s), "");
    for (const auto& name : {u"mkdir"_s, u"cp"_s, u"chmod"_s, u"launchctl"_s, u"systemctl"_s})
        write(inside(u"/stand-ins/"_s + name), standIn, true);
    QFile::link(u"/usr/bin/cat"_s, inside(u"/stand-ins/cat"_s));
}

bool PrivateRoot::isAvailable() {
    return canMount() || canTrace();
}

CommandLine PrivateRoot::enter(const QString& shellLine) const {
    const QStringList arguments = {u"-"_s, directory_.path(), QDir::tempPath(), shellLine};
    if (!canMount())
        return {u"/bin/sh"_s, QStringList{u"-c"_s, QString::fromUtf8(enterByTracing)} + arguments};
    return {u"/usr/bin/unshare"_s,
            unshareArguments() +
                QStringList{u"/bin/sh"_s, u"-c"_s, QString::fromUtf8(enterByMounting)} + arguments};
}

void PrivateRoot::fail(const QString& command) const {
    write(inside(u"/failing"_s), command.toUtf8());
}

QStringList PrivateRoot::commands() const {
    return QString::fromUtf8(contentOf(u"/commands"_s)).split(u'\n', Qt::SkipEmptyParts);
}

QByteArray PrivateRoot::contentOf(const QString& path) const {
    QFile file(inside(path));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("no file");
}

QFile::Permissions PrivateRoot::permissionsOf(const QString& path) const {
    return QFile::permissions(inside(path));
}

} // namespace tarnwick::test
