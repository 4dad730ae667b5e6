// SPDX-License-Identifier: MIT
#include "update/update_service.h"

#include "platform/service_addresses.h"
#include "update/update_check.h"

#include <QNetworkAccessManager>

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

QNetworkAccessManager& UpdateService::network() {
    if (!network_)
        network_ = std::make_unique<QNetworkAccessManager>();
    return *network_;
}

void UpdateService::check(Completion completion) {
    // Owned by the manager of its transfer until it has finished and deletes itself.
    new UpdateCheck(options_, std::move(completion), network());
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
