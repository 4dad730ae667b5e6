// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

#include <chrono>

namespace tarnwick::test {

/// A script that notes the time of each call.
inline constexpr auto recordTimes = R"(date +%s%N >> "$here/times-$1")";

/// A real executable in a directory of its own that records how it was called and then does what
/// the test gives it as a shell script, with the arguments after the socket flag as "$@".
class StubTool {
public:
    /// `script` runs with sh; it may use "$1", which is the subcommand.
    explicit StubTool(const QByteArray& script = "true");

    QString path() const;

    QString directory() const { return directory_.path(); }

    /// Replaces what it does from the next call on.
    void setScript(const QByteArray& script);

    /// The argument lists of the calls that have begun, in order, the socket flag first.
    QList<QStringList> calls() const;

    /// The same without the socket flag.
    QList<QStringList> commands() const;

    /// The environment that the last call got.
    QStringList environment() const;

private:
    QTemporaryDir directory_;
};

/// When a tool whose script is recordTimes ran with that subcommand, the first time by default.
std::chrono::nanoseconds timeOf(const StubTool& tool, const char* subcommand, int call = 0);

} // namespace tarnwick::test
