// SPDX-License-Identifier: MIT
#pragma once

#include "platform/platform.h"
#include "platform/queues.h"
#include "update/manifest_fetcher.h"
#include "update/update_check_result.h"

#include <QObject>
#include <QTimer>
#include <QUrl>

#include <functional>

namespace tarnwick {

/// One fetch of the manifest on a thread of its own, within its time limit. Main thread.
///
/// Qt looks a proxy up on the thread that fetches, and that may run scripts or search the network
/// for as long as it takes. Deletes itself when its thread is free again; destroyed before, it
/// leaves a thread that is stuck behind.
class BackgroundFetch : public QObject {
public:
    /// Calls `completion` once, in a later turn of the event loop; it may destroy this.
    BackgroundFetch(const UpdateServiceOptions& options, ManifestFetcher::Completion completion,
                    QObject* parent);

private:
    void finish(const FetchResult& result);

    ManifestFetcher::Completion completion_; ///< Null once it has been called.
    QTimer deadline_;                        ///< Started with the fetch and never restarted.
    SerialQueue queue_;
};

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
