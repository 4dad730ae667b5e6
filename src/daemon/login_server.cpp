// SPDX-License-Identifier: MIT
#include "daemon/login_server.h"

#include "platform/service_addresses.h"

namespace tarnwick {

QString loginServer(const QString& deviceName) {
    const ServiceAddresses addresses = serviceAddresses();
    const bool isDevelopment = deviceName.trimmed().toLower().startsWith(QLatin1StringView("dev-"));
    return isDevelopment ? addresses.devLoginServer : addresses.prodLoginServer;
}

} // namespace tarnwick
