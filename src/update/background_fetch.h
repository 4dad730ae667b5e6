// SPDX-License-Identifier: MIT
#pragma once

#include "platform/queues.h"
#include "update/manifest_fetcher.h"

#include <QObject>
#include <QTimer>

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

} // namespace tarnwick
