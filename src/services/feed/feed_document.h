#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace morvane {

// One version as a feed lists it. Texts are UTF-8, without control characters (the notes keep their
// line breaks), and empty where the feed says nothing; whether they make sense is not asked here.
struct FeedItem {
    std::string version;       // what versions are compared by
    std::string shownVersion;  // what people call it
    std::string notes;         // shown as it stands, at most 10,000 characters
    std::string address;       // of the file
    std::string signature;     // of the file, ed25519 in base64
    std::int64_t length = 0;   // of the file in bytes; 0 where it is missing or no number

    bool operator==(const FeedItem&) const = default;
};

// Reads an appcast: RSS 2.0 whose items describe a version each in an "enclosure" with the
// attributes "url", "length", "version", "shortVersionString" and "edSignature"; the two versions
// may be elements of the item instead. Names count without their prefix: feeds bind it as they
// like.
//
// Nothing where this is not such a document: not UTF-8, not well-formed XML to its end, with a
// document type or an entity of its own, deeper than 32 elements, with more than 1,000 items.
[[nodiscard]] std::optional<std::vector<FeedItem>> readFeed(std::string_view bytes);

}  // namespace morvane
