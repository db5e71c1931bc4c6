#pragma once

#include <cstdint>
#include <filesystem>
#include <string>

#include "services/feed/feed_choice.h"
#include "services/feed/update_prompt.h"

namespace morvane {

// What can come between a check and a file.
enum class UpdateFailure : std::uint8_t {
    unreachable,
    refused,
    notSecure,
    sentInCircles,
    tooLarge,
    silent,
    unreadableFeed,
    unusable,    // a newer version that cannot be fetched
    incomplete,  // fewer bytes than the feed says
    wrongSignature,
    notWritten,
};

// `running` is the version that runs, as people call it.
[[nodiscard]] UpdateMessage foundMessage(const UpdateOffer& offer, const std::string& running);
[[nodiscard]] UpdateMessage upToDateMessage(const std::string& running);
[[nodiscard]] UpdateMessage downloadingMessage(const UpdateOffer& offer, std::int64_t received);
[[nodiscard]] UpdateMessage readyMessage(const UpdateOffer& offer,
                                         const std::filesystem::path& file);
[[nodiscard]] UpdateMessage checkFailedMessage(UpdateFailure failure);
[[nodiscard]] UpdateMessage downloadFailedMessage(const UpdateOffer& offer, UpdateFailure failure);

}  // namespace morvane
