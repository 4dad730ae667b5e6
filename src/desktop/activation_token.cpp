// SPDX-License-Identifier: MIT
#include "desktop/activation_token.h"

#include "desktop/window_system.h"

#include <QGuiApplication>

#include <algorithm>

namespace tarnwick {

using namespace Qt::StringLiterals;

namespace {

constexpr const char* tokenVariable = "XDG_ACTIVATION_TOKEN";
constexpr const char* startupVariable = "DESKTOP_STARTUP_ID";
constexpr qsizetype longestToken = 512;

bool isVisible(char c) {
    return c > ' ' && c <= '~';
}

} // namespace

QByteArray takeActivationToken() {
    QByteArray token = acceptableActivationToken(qgetenv(tokenVariable));
    if (token.isEmpty())
        token = acceptableActivationToken(qgetenv(startupVariable));
    qunsetenv(tokenVariable);
    qunsetenv(startupVariable);
    return token;
}

QByteArray acceptableActivationToken(const QByteArray& token) {
    const bool isAcceptable =
        token.size() <= longestToken && std::all_of(token.begin(), token.end(), isVisible);
    return isAcceptable ? token : QByteArray();
}

// Qt has no other way to be given one; only its Wayland platform uses it.
ActivationTokenScope::ActivationTokenScope(const QByteArray& token)
    : token_(acceptableActivationToken(token)),
      isSet_(!token_.isEmpty() && QGuiApplication::platformName().startsWith("wayland"_L1)) {
    if (isSet_)
        qputenv(tokenVariable, token_);
}

ActivationTokenScope::~ActivationTokenScope() {
    if (isSet_)
        qunsetenv(tokenVariable);
    completeStartup(token_);
}

} // namespace tarnwick
