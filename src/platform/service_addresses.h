// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace tarnwick {

/// The service's addresses, fixed when the client is built: each an HTTPS URL without a path.
struct ServiceAddresses {
    QString prodLoginServer; ///< Control server that a log-in uses.
    QString devLoginServer;  ///< Control server for devices named "dev-…".
    QString apiHost;         ///< Publishes the version manifest.
    QString webHost;         ///< Holds the download page.
    QString webSite;         ///< Opened by "Website".
};

ServiceAddresses serviceAddresses();

} // namespace tarnwick
