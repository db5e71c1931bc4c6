#include "services/feed/update_words.h"

#include "model/path_text.h"
#include "model/words.h"

namespace morvane {

namespace {

constexpr double bytesPerMB = 1e6;

std::string bytesText(std::int64_t bytes) {
    return sizeText(static_cast<double>(bytes) / bytesPerMB);
}

std::string sentence(UpdateFailure failure) {
    switch (failure) {
        case UpdateFailure::unreachable:
            return "The update server can’t be reached, or the connection was cut.";
        case UpdateFailure::refused:
            return "The update server doesn’t hand it out.";
        case UpdateFailure::notSecure:
            return "The connection to the update server isn’t secure.";
        case UpdateFailure::sentInCircles:
            return "The update server sends from one address to the next.";
        case UpdateFailure::tooLarge:
            return "The update server sends more than it should.";
        case UpdateFailure::silent:
            return "The update server stopped answering.";
        case UpdateFailure::unreadableFeed:
            return "The list of versions can’t be read.";
        case UpdateFailure::unusable:
            return "The list of versions doesn’t say how to get the new one safely.";
        case UpdateFailure::incomplete:
            return "The download is shorter than it should be.";
        case UpdateFailure::wrongSignature:
            return "The download isn’t signed by the makers of Morvane, so it was not kept.";
        case UpdateFailure::notWritten:
            return "The download can’t be saved.";
    }
    return {};
}

}  // namespace

UpdateMessage foundMessage(const UpdateOffer& offer, const std::string& running) {
    return {.kind = UpdateMessage::Kind::found,
            .title = "Morvane " + offer.shownVersion + " is available",
            .text = "You have " + running + ". The download is " + bytesText(offer.length) + ".",
            .notes = offer.notes,
            .action = "Download",
            .dismiss = "Not Now"};
}

UpdateMessage upToDateMessage(const std::string& running) {
    return {.kind = UpdateMessage::Kind::upToDate,
            .title = "Morvane is up to date",
            .text = "You have " + running + ", the newest version.",
            .dismiss = "OK"};
}

UpdateMessage downloadingMessage(const UpdateOffer& offer, std::int64_t received) {
    return {.kind = UpdateMessage::Kind::downloading,
            .title = "Downloading Morvane " + offer.shownVersion,
            .text = bytesText(received) + " of " + bytesText(offer.length),
            .dismiss = "Cancel",
            .fraction = static_cast<double>(received) / static_cast<double>(offer.length)};
}

UpdateMessage readyMessage(const UpdateOffer& offer, const std::filesystem::path& file) {
    return {.kind = UpdateMessage::Kind::ready,
            .title = "Morvane " + offer.shownVersion + " is downloaded",
            .text = "Its signature is right. It lies at " + pathText(file) + ".",
            .action = "Show",
            .dismiss = "OK",
            .fraction = 1,
            .file = file};
}

UpdateMessage checkFailedMessage(UpdateFailure failure) {
    return {.kind = UpdateMessage::Kind::failed,
            .title = "Couldn’t check for updates",
            .text = sentence(failure),
            .dismiss = "OK"};
}

UpdateMessage downloadFailedMessage(const UpdateOffer& offer, UpdateFailure failure) {
    return {.kind = UpdateMessage::Kind::failed,
            .title = "Couldn’t download Morvane " + offer.shownVersion,
            .text = sentence(failure),
            .dismiss = "OK"};
}

}  // namespace morvane
