// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

namespace tarnwick::test {

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

} // namespace tarnwick::test
