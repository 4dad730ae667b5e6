// SPDX-License-Identifier: MIT
#include "desktop/activation_token.h"

#include <QGuiApplication>

namespace tarnwick {

using namespace Qt::StringLiterals;

namespace {

constexpr const char* tokenVariable = "XDG_ACTIVATION_TOKEN";

} // namespace

QByteArray takeActivationToken() {
    const QByteArray token = qgetenv(tokenVariable);
    qunsetenv(tokenVariable);
    return token;
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
