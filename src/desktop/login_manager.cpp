// SPDX-License-Identifier: MIT
#include "desktop/login_manager.h"

namespace tarnwick {

using namespace Qt::StringLiterals;

LoginManager::LoginManager(const QDBusConnection& systemBus)
    : QDBusAbstractInterface(u"org.freedesktop.login1"_s, u"/org/freedesktop/login1"_s,
                             "org.freedesktop.login1.Manager", systemBus, nullptr) {}

} // namespace tarnwick
