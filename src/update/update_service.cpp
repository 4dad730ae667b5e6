// SPDX-License-Identifier: MIT
#include "update/update_service.h"

#include "platform/service_addresses.h"
#include "update/background_fetch.h"
#include "update/compare_versions.h"
#include "update/update_manifest.h"

namespace tarnwick {

using namespace Qt::StringLiterals;

namespace {

QUrl pageOf(const QString& host, const QString& path) {
    QUrl url(host + path, QUrl::StrictMode);
    if (!url.isValid())
        qFatal("an address of the service is no URL");
    return url;
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
