#pragma once

#include <QByteArrayView>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QObject>
#include <QSslConfiguration>
#include <QUrl>
#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>

#include "tasks/executor.h"

namespace morvane {

enum class FetchEnd : std::uint8_t {
    complete,       // every byte was handed over
    unreachable,    // no answer, or the connection was cut
    refused,        // an answer other than "here it is"
    notSecure,      // no trusted certificate, or sent on to an address that is not https
    sentInCircles,  // sent on more than five times
    tooLarge,       // more bytes than allowed
    silent,         // nothing came for too long
    notKept,        // the taker wanted no more
};

// Gets what lies at an https address and hands it over piece by piece, as it lies there: nothing is
// unpacked, stored or sent along (no cookies, no language, no system). Main thread.
class Fetch {
public:
    struct Rules {
        std::int64_t mostBytes = 0;
        // How long nothing may come, from the start and from each piece on.
        std::chrono::nanoseconds silence{};
        QSslConfiguration security;
    };
    // Takes a piece of the content; false ends the fetch. It may not drop the fetch.
    using Take = std::function<bool(QByteArrayView)>;
    // Comes once, at a later turn, and may drop the fetch; not after the fetch was dropped.
    using Ended = std::function<void(FetchEnd)>;

    // `network` and `executor` outlive this, which asks for `address` at once.
    Fetch(QNetworkAccessManager& network, Executor& executor, const QUrl& address, Rules rules,
          Take take, Ended ended);
    Fetch(const Fetch&) = delete;
    Fetch& operator=(const Fetch&) = delete;
    ~Fetch();

private:
    void request(const QUrl& address);
    void takeHeader();
    bool takeContent();  // false where that ended the fetch, after which nothing here may be used
    void takeEnd();
    void follow(const QUrl& target);
    void listen();  // counts the silence anew
    void stopListening();
    void dropReply();
    void end(FetchEnd how);

    QNetworkAccessManager& network_;
    Executor& executor_;
    Rules rules_;
    Take take_;
    Ended ended_;
    QObject listener_;
    QNetworkReply* reply_ = nullptr;
    std::optional<Executor::Timer> silence_;
    std::int64_t received_ = 0;
    int redirects_ = 0;
};

}  // namespace morvane
