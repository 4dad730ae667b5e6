// SPDX-License-Identifier: MIT
#include "desktop/activation_token.h"

#include <QGuiApplication>

#include <algorithm>

namespace tarnwick {

using namespace Qt::StringLiterals;

namespace {

constexpr const char* tokenVariable = "XDG_ACTIVATION_TOKEN";
constexpr qsizetype longestToken = 512;

bool isVisible(char c) {
    return c > ' ' && c <= '~';
}

} // namespace

QByteArray takeActivationToken() {
    const QByteArray token = qgetenv(tokenVariable);
    qunsetenv(tokenVariable);
    return token;
}

QByteArray acceptableActivationToken(const QByteArray& token) {
    const bool isAcceptable =
        token.size() <= longestToken && std::all_of(token.begin(), token.end(), isVisible);
    return isAcceptable ? token : QByteArray();
}

// Qt has no other way to be given one; only its Wayland platform uses it.
ActivationTokenScope::ActivationTokenScope(const QByteArray& token)
    : isSet_(!token.isEmpty() && QGuiApplication::platformName().startsWith("wayland"_L1)) {
    if (isSet_)
        qputenv(tokenVariable, token);
}

ActivationTokenScope::~ActivationTokenScope() {
    if (isSet_)
        qunsetenv(tokenVariable);
}

} // namespace tarnwick
