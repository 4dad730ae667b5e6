// SPDX-License-Identifier: MIT
#pragma once

#include <QProcess>
#include <QString>
#include <QTemporaryDir>

namespace tarnwick::test {

/// A message bus of this test's own, at an address that stays the same however often it is started.
class PrivateBus {
public:
    PrivateBus();
    ~PrivateBus();
    PrivateBus(const PrivateBus&) = delete;
    PrivateBus& operator=(const PrivateBus&) = delete;

    QString socket() const { return dir_.filePath(QStringLiteral("bus")); }

    QString address() const { return QStringLiteral("unix:path=") + socket(); }

    /// Returns once it can be connected to.
    void start(const QString& address = {});

    /// As if it had crashed, but without its socket staying behind.
    void stop();

private:
    QTemporaryDir dir_;
    QProcess daemon_;
};

} // namespace tarnwick::test
