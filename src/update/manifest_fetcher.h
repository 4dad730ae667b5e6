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

/// What an update check needs to know.
struct UpdateServiceOptions {
    QUrl manifestURL;                          ///< Where the manifest is published.
    QString installed;                         ///< The running version.
    std::chrono::milliseconds timeLimit{8000}; ///< For the whole check, redirects included.
    qsizetype bodyLimit = 1 << 20;             ///< Bytes of the body after unpacking.
};

/// The body of a successful answer, or why there is none, for the user to read.
struct FetchFailure {
    QString reason;
};

using FetchResult = std::variant<QByteArray, FetchFailure>;

/// Fetches the manifest over the network. Main thread.
///
/// What implements it is a module that is loaded by the first check: Qt's network library and all
/// that it draws in weigh more than a megabyte, and most days nobody checks.
class ManifestFetcher {
public:
    using Completion = std::function<void(const FetchResult&)>;

    ManifestFetcher() = default;
    ManifestFetcher(const ManifestFetcher&) = delete;
    ManifestFetcher& operator=(const ManifestFetcher&) = delete;
    virtual ~ManifestFetcher() =
        default; ///< Ends what still runs; its completions are never called.

    /// Calls `completion` once, in a later turn of the event loop.
    virtual void fetch(const UpdateServiceOptions& options, Completion completion) = 0;
};

/// The fetcher, or why its module cannot be loaded, in the system's words.
std::variant<std::unique_ptr<ManifestFetcher>, FetchFailure> loadManifestFetcher();

} // namespace tarnwick

/// The module's one entry; the caller owns what it returns.
extern "C" tarnwick::ManifestFetcher* tarnwickCreateManifestFetcher();
