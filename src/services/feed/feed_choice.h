#pragma once

#include <QUrl>
#include <cstdint>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "services/feed/feed_document.h"
#include "services/feed/signature.h"

namespace morvane {

// The most bytes that are fetched for a new version.
inline constexpr std::int64_t largestDownload = 500'000'000;

// A newer version with all that fetching it takes.
struct UpdateOffer {
    std::string version;
    std::string shownVersion;
    std::string notes;
    QUrl address;  // https
    std::int64_t length = 0;
    Signature signature{};
};

// Nothing in the feed is newer.
struct NothingNewer {};
// What is newer cannot be fetched: no https address, no signature, no length or one over the limit.
// Or there are items, and not one says which version it is.
struct NothingUsable {};

using FeedChoice = std::variant<UpdateOffer, NothingNewer, NothingUsable>;

// The newest version that is newer than `current` and can be fetched. `current` is a version.
[[nodiscard]] FeedChoice chooseUpdate(const std::vector<FeedItem>& items, std::string_view current);

// Whether something may be fetched from there: https, and a host.
[[nodiscard]] bool isSecureAddress(const QUrl& address);

}  // namespace morvane
