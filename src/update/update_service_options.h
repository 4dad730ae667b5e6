// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QUrl>

#include <chrono>

namespace tarnwick {

/// What an update check needs to know.
struct UpdateServiceOptions {
    QUrl manifestURL;                          ///< Where the manifest is published.
    QString installed;                         ///< The running version.
    std::chrono::milliseconds timeLimit{8000}; ///< For the whole check, redirects included.
    qsizetype bodyLimit = 1 << 20;             ///< Bytes of the body after unpacking.
};

} // namespace tarnwick
