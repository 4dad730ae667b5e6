// SPDX-License-Identifier: MIT
#include "update/update_service.h"

#include "platform/queues.h"
#include "platform/service_addresses.h"
#include "update/update_manifest.h"

#include <QPointer>
#include <QThread>
#include <QTimer>

#include <utility>

namespace tarnwick {

using namespace Qt::StringLiterals;

namespace {

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

// Runs on the fetch's own thread, with whose end the fetcher goes.
void fetchHere(const UpdateServiceOptions& options, const ManifestFetcher::Completion& report) {
    auto loaded = loadManifestFetcher();
    if (const auto* failure = std::get_if<FetchFailure>(&loaded))
        return report(*failure);
    ManifestFetcher* fetcher = std::get<0>(loaded).release();
    QObject::connect(QThread::currentThread(), &QThread::finished, [fetcher] { delete fetcher; });
    fetcher->fetch(options, report);
}

QUrl pageOf(const QString& host, const QString& path) {
    QUrl url(host + path, QUrl::StrictMode);
    if (!url.isValid())
        qFatal("an address of the service is no URL");
    return url;
}

BackgroundFetch::BackgroundFetch(const UpdateServiceOptions& options,
                                 ManifestFetcher::Completion completion, QObject* parent)
    : QObject(parent), completion_(std::move(completion)), queue_(u"tarnwick.update"_s) {
    const auto report = [self = QPointer(this)](const FetchResult& result) {
        postToMainQueue([self, result] {
            if (self)
                self->finish(result);
        });
    };
    queue_.async([options, report] { fetchHere(options, report); });
    connect(&deadline_, &QTimer::timeout, this,
            [this] { finish(FetchFailure{u"The request timed out."_s}); });
    deadline_.setSingleShot(true);
    deadline_.setTimerType(Qt::PreciseTimer); // coarse timers may fire early
    deadline_.start(options.timeLimit);
}

void BackgroundFetch::finish(const FetchResult& result) {
    if (!completion_)
        return;
    deadline_.stop();
    queue_.async([self = QPointer(this)] { // runs when the thread is free
        postToMainQueue([self] { delete self; });
    });
    const auto completion = std::exchange(completion_, nullptr);
    completion(result);
}

} // namespace

UpdateService::UpdateService(UpdateServiceOptions options) : options_(std::move(options)) {}

UpdateService::~UpdateService() = default;

void UpdateService::check(Completion completion) {
    // Owned by the context until it deletes itself. The completion may destroy the service.
    new BackgroundFetch(
        options_,
        [this, completion = std::move(completion)](const FetchResult& fetched) {
            completion(resultOf(fetched));
        },
        &lifetime_);
}

UpdateCheckResult UpdateService::resultOf(const FetchResult& fetched) const {
    if (const auto* failure = std::get_if<FetchFailure>(&fetched))
        return CheckError{failure->reason};
    const auto manifest = parseUpdateManifest(std::get<QByteArray>(fetched));
    if (const auto* reason = std::get_if<QString>(&manifest))
        return CheckError{*reason};
    const QString available = std::get<UpdateManifest>(manifest).current;
    if (compareVersions(options_.installed, available) < 0)
        return Outdated{options_.installed, available};
    return UpToDate{options_.installed};
}

QString UpdateService::installedVersion(const Platform& platform, const QString& bundleDir) {
    const QString version = platform.version(bundleDir);
    return version.isEmpty() ? u"0.0.0"_s : version;
}

QUrl UpdateService::manifestURL() {
    return pageOf(serviceAddresses().apiHost, u"/api/public/version"_s);
}

QUrl UpdateService::downloadPageURL() {
    return pageOf(serviceAddresses().webHost, u"/download/client/macos"_s);
}

} // namespace tarnwick
