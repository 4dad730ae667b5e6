// SPDX-License-Identifier: MIT
#pragma once

#include "update/update_check_result.h"
#include "update/update_service_options.h"

#include <QByteArray>
#include <QNetworkReply>
#include <QObject>
#include <QTimer>

#include <functional>
#include <optional>

class QNetworkAccessManager;

namespace tarnwick {

/// One fetch of the manifest, from the request to the result. A child of the manager that it
/// fetches through; deletes itself once it has called its completion.
class UpdateCheck : public QObject {
    Q_OBJECT

public:
    UpdateCheck(UpdateServiceOptions options,
                std::function<void(const UpdateCheckResult&)> completion,
                QNetworkAccessManager& network);

private:
    void readBody();
    void replyFinished();
    void timeOut();
    void finish(const UpdateCheckResult& result);
    UpdateCheckResult resultOfReply() const;
    std::optional<QString> transportFailure() const;
    std::optional<QString> refusal() const;

    const UpdateServiceOptions options_;
    std::function<void(const UpdateCheckResult&)> completion_;
    QNetworkReply* reply_; ///< A child of this.
    QByteArray body_;
    QTimer deadline_; ///< Runs from the request on, whatever arrives meanwhile.
};

} // namespace tarnwick
