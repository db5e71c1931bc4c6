#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>

namespace morvane {

// What the user is told about new versions, in finished words.
struct UpdateMessage {
    enum class Kind : std::uint8_t { found, upToDate, downloading, ready, failed };

    Kind kind = Kind::failed;
    std::string title;
    std::string text;
    std::string notes;    // what is new, plain text with line breaks; only of `found`
    std::string action;   // the label of the button that goes on; empty where there is none
    std::string dismiss;  // the label of the one that closes, or stops what is under way
    double fraction = 0;  // of a download, from 0 to 1
    std::optional<std::filesystem::path> file;  // only of `ready`: a path of this machine

    bool operator==(const UpdateMessage&) const = default;
};

// Shows the user one message at a time. The press on the action of `found` goes to
// FeedUpdater::download, that of `ready` to whoever can reveal a file, and closing to
// FeedUpdater::dismiss. Main thread.
class UpdatePrompt {
public:
    UpdatePrompt() = default;
    UpdatePrompt(const UpdatePrompt&) = delete;
    UpdatePrompt& operator=(const UpdatePrompt&) = delete;
    virtual ~UpdatePrompt() = default;

    // In place of what was shown before. A download shows itself again for each whole per cent. The
    // user's answer comes at a later turn, never from inside this.
    virtual void show(const UpdateMessage& message) = 0;
};

}  // namespace morvane
