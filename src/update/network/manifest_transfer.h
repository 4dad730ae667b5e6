// SPDX-License-Identifier: MIT
#pragma once

#include "update/manifest_fetcher.h"

#include <QByteArray>
#include <QNetworkReply>
#include <QObject>

#include <optional>

class QNetworkAccessManager;

namespace tarnwick {

/// One fetch of the manifest, from the request to the result. A child of the manager that it
/// fetches through; deletes itself once it has called its completion.
class ManifestTransfer : public QObject {
    Q_OBJECT

public:
    ManifestTransfer(UpdateServiceOptions options, ManifestFetcher::Completion completion,
                     QNetworkAccessManager& network);

private:
    void readBody();
    void replyFinished();
    void finish(const FetchResult& result);
    FetchResult resultOfReply() const;
    std::optional<QString> transportFailure() const;
    std::optional<QString> refusal() const;

    const UpdateServiceOptions options_;
    ManifestFetcher::Completion completion_;
    QNetworkReply* reply_; ///< A child of this.
    QByteArray body_;
};

} // namespace tarnwick
