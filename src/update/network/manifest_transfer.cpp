// SPDX-License-Identifier: MIT
#include "update/network/manifest_transfer.h"

#include <QNetworkAccessManager>
#include <QNetworkRequest>
#include <QTimer>

namespace tarnwick {

using namespace Qt::StringLiterals;

namespace {

constexpr int maximumRedirects = 20; // as browsers do
constexpr int statusOk = 200;

// Without a cache and without cookies: no check depends on an earlier one.
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

ManifestTransfer::ManifestTransfer(UpdateServiceOptions options,
                                   ManifestFetcher::Completion completion,
                                   QNetworkAccessManager& network)
    : QObject(&network), options_(std::move(options)), completion_(std::move(completion)),
      reply_(network.get(requestFor(options_.manifestURL))) {
    reply_->setParent(this);
    connect(reply_, &QNetworkReply::readyRead, this, &ManifestTransfer::readBody);
    connect(reply_, &QNetworkReply::finished, this, &ManifestTransfer::replyFinished);
}

void ManifestTransfer::readBody() {
    body_ += reply_->readAll();
    if (body_.size() <= options_.bodyLimit)
        return;
    finish(FetchFailure{refusal().value_or(u"The server's answer is too large."_s)});
    reply_->abort();
}

void ManifestTransfer::replyFinished() {
    finish(resultOfReply());
}

// The completion may destroy the service, and with it the manager whose signal is being delivered:
// it is called in a later turn of the event loop.
void ManifestTransfer::finish(const FetchResult& result) {
    reply_->disconnect(this);
    QTimer::singleShot(0, this, [this, result] {
        deleteLater();
        const auto completion = completion_;
        completion(result);
    });
}

FetchResult ManifestTransfer::resultOfReply() const {
    if (const auto failure = transportFailure())
        return FetchFailure{*failure};
    if (const auto failure = refusal())
        return FetchFailure{*failure};
    return body_;
}

// Qt also reports an error for a status of failure and for a redirect that it does not follow:
// these are answers. A connection that breaks is an error whatever the status was.
std::optional<QString> ManifestTransfer::transportFailure() const {
    const auto error = reply_->error();
    const QVariant status = reply_->attribute(QNetworkRequest::HttpStatusCodeAttribute);
    const bool isConnectionLost = error > QNetworkReply::NoError &&
                                  error <= QNetworkReply::UnknownNetworkError &&
                                  error != QNetworkReply::InsecureRedirectError;
    const bool isAnswered = status.isValid() && status.toInt() != statusOk;
    if (isConnectionLost || (error != QNetworkReply::NoError && !isAnswered))
        return reply_->errorString();
    // Qt reports a reset connection as the end of the body.
    const QVariant length = reply_->header(QNetworkRequest::ContentLengthHeader);
    if (error == QNetworkReply::NoError && body_.size() < length.toLongLong())
        return u"Connection closed"_s;
    return std::nullopt;
}

// The reason to refuse an answer: any status but 200.
std::optional<QString> ManifestTransfer::refusal() const {
    const QVariant status = reply_->attribute(QNetworkRequest::HttpStatusCodeAttribute);
    const int code = status.isValid() ? status.toInt() : -1;
    if (code == statusOk)
        return std::nullopt;
    return u"Server returned HTTP %1"_s.arg(code);
}

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
