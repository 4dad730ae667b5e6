// SPDX-License-Identifier: MIT
#include "platform/service_addresses.h"

namespace tarnwick {

ServiceAddresses serviceAddresses() {
    return {
        .prodLoginServer = QStringLiteral(TARNWICK_PROD_LOGIN_SERVER),
        .devLoginServer = QStringLiteral(TARNWICK_DEV_LOGIN_SERVER),
        .apiHost = QStringLiteral(TARNWICK_API_HOST),
        .webHost = QStringLiteral(TARNWICK_WEB_HOST),
        .webSite = QStringLiteral(TARNWICK_WEB_SITE),
    };
}

} // namespace tarnwick
