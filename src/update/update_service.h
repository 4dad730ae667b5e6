// SPDX-License-Identifier: MIT
#pragma once

#include "platform/platform.h"
#include "update/manifest_fetcher.h"

#include <QObject>
#include <QString>
#include <QUrl>

#include <functional>
#include <variant>

namespace tarnwick {

/// The running version is not older than the published one.
struct UpToDate {
    QString installed;

    bool operator==(const UpToDate&) const = default;
};

/// A newer version is published.
struct Outdated {
    QString installed;
    QString available;

    bool operator==(const Outdated&) const = default;
};

/// The check failed.
struct CheckError {
    QString reason; ///< For the user to read.

    bool operator==(const CheckError&) const = default;
};

/// The outcome of one update check.
using UpdateCheckResult = std::variant<UpToDate, Outdated, CheckError>;

/// Finds out whether a newer version of the client has been published. Main thread.
class UpdateService {
public:
    using Completion = std::function<void(const UpdateCheckResult&)>;

    explicit UpdateService(UpdateServiceOptions options);
    ~UpdateService(); ///< Aborts all checks without completion.
    UpdateService(const UpdateService&) = delete;
    UpdateService& operator=(const UpdateService&) = delete;

    /// Fetches the manifest and calls `completion` once, in a later turn of the event loop. Any
    /// number of checks may run at once. Every failure is a result; nothing is retried.
    void check(Completion completion);

    /// The version of the client whose executables are in `bundleDir`, "0.0.0" when it has none.
    static QString installedVersion(const Platform& platform, const QString& bundleDir);

    static QUrl manifestURL();
    static QUrl downloadPageURL();

private:
    UpdateCheckResult resultOf(const FetchResult& fetched) const;

    UpdateServiceOptions options_;
    QObject lifetime_; ///< Owns the fetches under way.
};

} // namespace tarnwick
