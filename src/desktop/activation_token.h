// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

namespace tarnwick {

/// Returns the token with which a launcher lets this process take the focus and waits for what it
/// shows, "" for none, and takes it out of the environment that child processes inherit. To be
/// called while the process has one thread.
QByteArray takeActivationToken();

/// The token if it can be one, else "": launchers and status areas may send anything.
QByteArray acceptableActivationToken(const QByteArray& token);

/// What is shown during its lifetime was asked for with a token: windows take the focus by it, and
/// at the end the pointer is no longer busy. Main thread.
class ActivationTokenScope {
public:
    explicit ActivationTokenScope(const QByteArray& token);
    ~ActivationTokenScope();
    ActivationTokenScope(const ActivationTokenScope&) = delete;
    ActivationTokenScope& operator=(const ActivationTokenScope&) = delete;

private:
    const QByteArray token_;
    const bool isSet_; ///< In the environment.
};

} // namespace tarnwick
