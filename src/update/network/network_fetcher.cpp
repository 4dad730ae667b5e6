// SPDX-License-Identifier: MIT
#include "update/manifest_fetcher.h"
#include "update/network/manifest_transfer.h"

#include <QNetworkAccessManager>

namespace tarnwick {

namespace {

class NetworkFetcher : public ManifestFetcher {
public:
    void fetch(const UpdateServiceOptions& options, Completion completion) override {
        // Owned by the manager until it has finished and deletes itself.
        new ManifestTransfer(options, std::move(completion), manager_);
    }

private:
    QNetworkAccessManager manager_;
};

} // namespace

} // namespace tarnwick

Q_DECL_EXPORT tarnwick::ManifestFetcher* tarnwickCreateManifestFetcher() {
    return new tarnwick::NetworkFetcher;
}
