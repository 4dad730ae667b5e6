// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

namespace tarnwick {

/// Returns the token with which a launcher lets this process take the focus, "" for none, and takes
/// it out of the environment that child processes inherit. To be called while the process has one
/// thread.
QByteArray takeActivationToken();

/// The token if it can be one, else "": launchers and status areas may send anything.
QByteArray acceptableActivationToken(const QByteArray& token);

/// Lets windows that are activated during its lifetime take the focus by a token. Main thread.
class ActivationTokenScope {
public:
    explicit ActivationTokenScope(const QByteArray& token);
    ~ActivationTokenScope();
    ActivationTokenScope(const ActivationTokenScope&) = delete;
    ActivationTokenScope& operator=(const ActivationTokenScope&) = delete;

private:
    bool isSet_;
};

} // namespace tarnwick
