#include "services/feed/feed_choice.h"

#include <algorithm>
#include <optional>

#include "services/feed/version.h"

namespace morvane {

namespace {

std::optional<UpdateOffer> offerOf(const FeedItem& item) {
    const QUrl address(QString::fromStdString(item.address), QUrl::StrictMode);
    const auto signature = readSignature(item.signature);
    if (!isSecureAddress(address) || !signature || item.length <= 0 ||
        item.length > largestDownload) {
        return std::nullopt;
    }
    return UpdateOffer{.version = item.version,
                       .shownVersion = item.shownVersion.empty() ? item.version : item.shownVersion,
                       .notes = item.notes,
                       .address = address,
                       .length = item.length,
                       .signature = *signature};
}

}  // namespace

FeedChoice chooseUpdate(const std::vector<FeedItem>& items, std::string_view current) {
    std::optional<UpdateOffer> best;
    bool sawVersion = items.empty();
    bool sawNewer = false;
    for (const FeedItem& item : items) {
        if (!isVersion(item.version)) continue;
        sawVersion = true;
        if (compareVersions(item.version, current) <= 0) continue;
        sawNewer = true;
        if (best && compareVersions(item.version, best->version) <= 0) continue;
        if (auto offer = offerOf(item)) best = std::move(offer);
    }
    if (best) return *std::move(best);
    if (sawNewer || !sawVersion) return NothingUsable{};
    return NothingNewer{};
}

bool isSecureAddress(const QUrl& address) {
    return address.isValid() && address.scheme() == u"https" && !address.host().isEmpty();
}

}  // namespace morvane
