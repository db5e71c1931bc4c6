#include "services/feed/fetch.h"

#include <QNetworkRequest>
#include <utility>

#include "services/feed/feed_choice.h"

namespace morvane {

namespace {

constexpr int mostRedirects = 5;
constexpr qint64 pieceBytes = 64 << 10;
constexpr qint64 bufferBytes = 4 * pieceBytes;

QNetworkRequest requestFor(const QUrl& address, const QSslConfiguration& security) {
    QNetworkRequest request(address);
    request.setSslConfiguration(security);
    // Each address is looked at before anything is sent there.
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute,
                         QNetworkRequest::ManualRedirectPolicy);
    request.setAttribute(QNetworkRequest::Http2AllowedAttribute, false);
    request.setAttribute(QNetworkRequest::CookieLoadControlAttribute, QNetworkRequest::Manual);
    request.setAttribute(QNetworkRequest::CookieSaveControlAttribute, QNetworkRequest::Manual);
    request.setAttribute(QNetworkRequest::AuthenticationReuseAttribute, QNetworkRequest::Manual);
    // Bytes are counted and signed as they are sent.
    request.setRawHeader("Accept-Encoding", "identity");
    // In place of what the toolkit tells of the user's language and system.
    request.setRawHeader("Accept-Language", "en");
    request.setRawHeader("User-Agent", "Morvane");
    return request;
}

}  // namespace

Fetch::Fetch(QNetworkAccessManager& network, Executor& executor, const QUrl& address, Rules rules,
             Take take, Ended ended)
    : network_(network),
      executor_(executor),
      rules_(std::move(rules)),
      take_(std::move(take)),
      ended_(std::move(ended)) {
    request(address);
}

Fetch::~Fetch() {
    dropReply();
    stopListening();
}

void Fetch::request(const QUrl& address) {
    reply_ = network_.get(requestFor(address, rules_.security));
    reply_->setReadBufferSize(bufferBytes);
    QObject::connect(reply_, &QNetworkReply::metaDataChanged, &listener_, [this] { takeHeader(); });
    QObject::connect(reply_, &QNetworkReply::readyRead, &listener_, [this] { takeContent(); });
    QObject::connect(reply_, &QNetworkReply::finished, &listener_, [this] { takeEnd(); });
    listen();
}

void Fetch::takeHeader() {
    listen();
    const int status = reply_->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
    const QUrl target = reply_->attribute(QNetworkRequest::RedirectionTargetAttribute).toUrl();
    // Decided by the header alone: the body of such an answer may never end.
    if (target.isValid()) return follow(reply_->url().resolved(target));
    if (status != 200) return end(FetchEnd::refused);
    const QVariant length = reply_->header(QNetworkRequest::ContentLengthHeader);
    if (length.isValid() && length.toLongLong() > rules_.mostBytes) end(FetchEnd::tooLarge);
}

bool Fetch::takeContent() {
    listen();
    while (reply_->bytesAvailable() > 0) {
        const QByteArray piece = reply_->read(pieceBytes);
        received_ += piece.size();
        if (received_ > rules_.mostBytes) {
            end(FetchEnd::tooLarge);
            return false;
        }
        if (!take_(piece)) {
            end(FetchEnd::notKept);
            return false;
        }
    }
    return true;
}

void Fetch::takeEnd() {
    if (!takeContent()) return;
    const QNetworkReply::NetworkError error = reply_->error();
    if (error == QNetworkReply::NoError) return end(FetchEnd::complete);
    if (error == QNetworkReply::SslHandshakeFailedError) return end(FetchEnd::notSecure);
    end(FetchEnd::unreachable);
}

void Fetch::follow(const QUrl& target) {
    if (!isSecureAddress(target)) return end(FetchEnd::notSecure);
    if (++redirects_ > mostRedirects) return end(FetchEnd::sentInCircles);
    dropReply();
    request(target);
}

void Fetch::listen() {
    stopListening();
    silence_ = executor_.at(executor_.now() + rules_.silence, [this] {
        silence_.reset();
        end(FetchEnd::silent);
    });
}

void Fetch::stopListening() {
    if (silence_) executor_.cancel(*std::exchange(silence_, std::nullopt));
}

void Fetch::dropReply() {
    if (reply_ == nullptr) return;
    QNetworkReply* reply = std::exchange(reply_, nullptr);
    // An abort is told at once, and nobody is to hear of it. The reply's other connections are its
    // own: without them the toolkit goes on receiving.
    reply->disconnect(&listener_);
    reply->abort();
    reply->deleteLater();
}

void Fetch::end(FetchEnd how) {
    dropReply();
    stopListening();
    // The one who hears of it may drop this object.
    const Ended ended = std::move(ended_);
    ended(how);
}

}  // namespace morvane
