// SPDX-License-Identifier: MIT
#include "update/background_fetch.h"

#include "platform/queues.h"

#include <QPointer>
#include <QThread>

#include <utility>

namespace tarnwick {

using namespace Qt::StringLiterals;

namespace {

// Runs on the fetch's own thread, with whose end the fetcher goes.
void fetchHere(const UpdateServiceOptions& options, const ManifestFetcher::Completion& report) {
    auto loaded = loadManifestFetcher();
    if (const auto* failure = std::get_if<FetchFailure>(&loaded))
        return report(*failure);
    ManifestFetcher* fetcher = std::get<0>(loaded).release();
    QObject::connect(QThread::currentThread(), &QThread::finished, [fetcher] { delete fetcher; });
    fetcher->fetch(options, report);
}

} // namespace

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

} // namespace tarnwick
