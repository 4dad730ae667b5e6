// SPDX-License-Identifier: MIT
#include "support/private_bus.h"

#include <QFile>

#include <stdexcept>

namespace tarnwick::test {

using namespace Qt::StringLiterals;

namespace {

constexpr int timeLimit = 20'000;

// Anybody may own any name and talk to anybody.
constexpr auto configuration = R"(<!DOCTYPE busconfig PUBLIC
 "-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN"
 "http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd">
<busconfig>
  <type>session</type>
  <listen>%1</listen>
  <policy context="default">
    <allow send_destination="*" eavesdrop="true"/>
    <allow eavesdrop="true"/>
    <allow own="*"/>
  </policy>
</busconfig>
)";

} // namespace

PrivateBus::PrivateBus() = default;

PrivateBus::~PrivateBus() {
    stop();
}

void PrivateBus::start(const QString& address) {
    QFile file(dir_.filePath(u"bus.conf"_s));
    if (!file.open(QIODevice::WriteOnly))
        throw std::runtime_error("the bus's configuration cannot be written");
    const QString where = address.isEmpty() ? this->address() : address;
    file.write(QString::fromLatin1(configuration).arg(where).toUtf8());
    file.close();
    daemon_.start(u"dbus-daemon"_s, {u"--nofork"_s, u"--nopidfile"_s, u"--print-address"_s,
                                     u"--config-file="_s + file.fileName()});
    // It prints its address when it listens.
    if (!daemon_.waitForReadyRead(timeLimit))
        throw std::runtime_error("dbus-daemon does not start");
}

void PrivateBus::stop() {
    if (daemon_.state() == QProcess::NotRunning)
        return;
    daemon_.kill();
    daemon_.waitForFinished(timeLimit);
    QFile::remove(socket());
}

} // namespace tarnwick::test
