// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>
#include <QUrl>

#include <chrono>
#include <functional>
#include <memory>
#include <variant>

namespace tarnwick {

/// The parameters of an update check.
struct UpdateServiceOptions {
    QUrl manifestURL;                          ///< Where the manifest is published.
    QString installed;                         ///< The running version.
    std::chrono::milliseconds timeLimit{8000}; ///< For the whole check: proxy, redirects.
    qsizetype bodyLimit = 1 << 20;             ///< Bytes of the body after unpacking.
};

/// Why there is no manifest, for the user to read.
struct FetchFailure {
    QString reason;
};

using FetchResult = std::variant<QByteArray, FetchFailure>;

/// Fetches the manifest over the network, without a time limit. Lives on the thread that makes it.
///
/// Implemented in a module that the first check loads: Qt's network library and its dependencies
/// take more than a megabyte, and most days nobody checks.
class ManifestFetcher {
public:
    using Completion = std::function<void(const FetchResult&)>;

    ManifestFetcher() = default;
    ManifestFetcher(const ManifestFetcher&) = delete;
    ManifestFetcher& operator=(const ManifestFetcher&) = delete;
    virtual ~ManifestFetcher() = default; ///< Aborts all fetches without completion.

    /// Calls `completion` once, in a later turn of the event loop.
    virtual void fetch(const UpdateServiceOptions& options, Completion completion) = 0;
};

/// The fetcher, or the system's reason why its module cannot be loaded.
std::variant<std::unique_ptr<ManifestFetcher>, FetchFailure> loadManifestFetcher();

} // namespace tarnwick

/// The module's only entry point; the caller owns the result.
extern "C" tarnwick::ManifestFetcher* tarnwickCreateManifestFetcher();
