// SPDX-License-Identifier: MIT
#include "support/stub_tool.h"

#include <QDir>
#include <QFile>
#include <QSaveFile>

namespace tarnwick::test {

namespace {

// Arguments may hold newlines, so records end in NUL: one a call, arguments parted by U+001F.
constexpr auto prologue = R"sh(#!/bin/sh
here=${0%/*}
{ for a in "$@"; do printf '%s\037' "$a"; done; printf '\0'; } >> "$here/calls"
tr '\0' '\n' < /proc/self/environ > "$here/environment"
shift
)sh";

QByteArray contentOf(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

StubTool::StubTool(const QByteArray& script) {
    setScript(script);
}

QString StubTool::path() const {
    return directory_.filePath(QStringLiteral("tool"));
}

void StubTool::setScript(const QByteArray& script) {
    QSaveFile file(path()); // a running copy keeps the text that it started with
    if (!file.open(QIODevice::WriteOnly))
        qFatal("cannot write the stub tool");
    file.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    file.write(prologue + script + '\n');
    file.commit();
}

QList<QStringList> StubTool::calls() const {
    QList<QStringList> calls;
    auto records = contentOf(directory_.filePath(QStringLiteral("calls"))).split('\0');
    records.removeLast(); // empty, or a record that is being written right now
    for (const QByteArray& record : std::as_const(records)) {
        QStringList arguments = QString::fromUtf8(record).split(QChar(0x1f));
        arguments.removeLast(); // every argument is followed by a separator
        calls.append(arguments);
    }
    return calls;
}

QList<QStringList> StubTool::commands() const {
    QList<QStringList> commands = calls();
    for (QStringList& command : commands)
        command.removeFirst();
    return commands;
}

QStringList StubTool::environment() const {
    return QString::fromUtf8(contentOf(directory_.filePath(QStringLiteral("environment"))))
        .split(u'\n', Qt::SkipEmptyParts);
}

std::chrono::nanoseconds timeOf(const StubTool& tool, const char* subcommand, int call) {
    const QString file =
        tool.directory() + QStringLiteral("/times-") + QLatin1StringView(subcommand);
    return std::chrono::nanoseconds(contentOf(file).split('\n').value(call).toLongLong());
}

} // namespace tarnwick::test
