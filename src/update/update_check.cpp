// SPDX-License-Identifier: MIT
#include "update/update_check.h"

#include "platform/main_queue.h"
#include "update/update_manifest.h"
#include "update/update_service.h"

#include <QNetworkAccessManager>
#include <QNetworkRequest>
#include <QPointer>

namespace tarnwick {

using namespace Qt::StringLiterals;

namespace {

constexpr int maximumRedirects = 20; // as browsers do
constexpr int statusOk = 200;

// Without a cache and without cookies: a check leaves nothing behind that the next would see.
QNetworkRequest requestFor(const QUrl& url) {
    QNetworkRequest request(url);
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute,
                         QNetworkRequest::NoLessSafeRedirectPolicy);
    request.setMaximumRedirectsAllowed(maximumRedirects);
    request.setAttribute(QNetworkRequest::CookieLoadControlAttribute, QNetworkRequest::Manual);
    request.setAttribute(QNetworkRequest::CookieSaveControlAttribute, QNetworkRequest::Manual);
    request.setAttribute(QNetworkRequest::AuthenticationReuseAttribute, QNetworkRequest::Manual);
    return request;
}

} // namespace

UpdateCheck::UpdateCheck(UpdateServiceOptions options,
                         std::function<void(const UpdateCheckResult&)> completion,
                         QNetworkAccessManager& network)
    : QObject(&network), options_(std::move(options)), completion_(std::move(completion)),
      reply_(network.get(requestFor(options_.manifestURL))) {
    reply_->setParent(this);
    connect(reply_, &QNetworkReply::readyRead, this, &UpdateCheck::readBody);
    connect(reply_, &QNetworkReply::finished, this, &UpdateCheck::replyFinished);
    connect(&deadline_, &QTimer::timeout, this, &UpdateCheck::timeOut);
    deadline_.setSingleShot(true);
    deadline_.setTimerType(Qt::PreciseTimer); // the others may be early
    deadline_.start(options_.timeLimit);
}

void UpdateCheck::readBody() {
    body_ += reply_->readAll();
    if (body_.size() <= options_.bodyLimit)
        return;
    finish(CheckError{refusal().value_or(u"The server's answer is too large."_s)});
    reply_->abort();
}

void UpdateCheck::replyFinished() {
    finish(resultOfReply());
}

void UpdateCheck::timeOut() {
    finish(CheckError{u"The request timed out."_s});
    reply_->abort();
}

// The completion may end the service, and with it the manager whose signal brought us here: it is
// called in a later turn of the event loop.
void UpdateCheck::finish(const UpdateCheckResult& result) {
    deadline_.stop();
    reply_->disconnect(this);
    postToMainQueue([self = QPointer(this), result] {
        if (!self)
            return;
        self->deleteLater();
        const auto completion = self->completion_;
        completion(result);
    });
}

UpdateCheckResult UpdateCheck::resultOfReply() const {
    if (const auto failure = transportFailure())
        return CheckError{*failure};
    if (const auto failure = refusal())
        return CheckError{*failure};
    const auto manifest = parseUpdateManifest(body_);
    if (const auto* reason = std::get_if<QString>(&manifest))
        return CheckError{*reason};
    const QString available = std::get<UpdateManifest>(manifest).current;
    if (UpdateService::compareVersions(options_.installed, available) < 0)
        return Outdated{options_.installed, available};
    return UpToDate{options_.installed};
}

// Qt reports a status that means failure as an error too, and so a redirect that it does not
// follow: these count as answers. A connection that breaks is an error whatever the status was.
std::optional<QString> UpdateCheck::transportFailure() const {
    const auto error = reply_->error();
    const QVariant status = reply_->attribute(QNetworkRequest::HttpStatusCodeAttribute);
    const bool isConnectionLost = error > QNetworkReply::NoError &&
                                  error <= QNetworkReply::UnknownNetworkError &&
                                  error != QNetworkReply::InsecureRedirectError;
    const bool isAnswered = status.isValid() && status.toInt() != statusOk;
    if (isConnectionLost || (error != QNetworkReply::NoError && !isAnswered))
        return reply_->errorString();
    // Qt takes a reset for the end of the body.
    const QVariant length = reply_->header(QNetworkRequest::ContentLengthHeader);
    if (error == QNetworkReply::NoError && body_.size() < length.toLongLong())
        return u"Connection closed"_s;
    return std::nullopt;
}

// Why an answer is not worth reading.
std::optional<QString> UpdateCheck::refusal() const {
    const QVariant status = reply_->attribute(QNetworkRequest::HttpStatusCodeAttribute);
    const int code = status.isValid() ? status.toInt() : -1;
    if (code == statusOk)
        return std::nullopt;
    return u"Server returned HTTP %1"_s.arg(code);
}

} // namespace tarnwick
