#pragma once

#include <mutex>
#include <string>
#include <utility>
#include <variant>
#include <vector>

namespace morvane::folder {

// Something the program asked of the system: `{kind: value}` when written as JSON. All texts are
// UTF-8; paths come as their texts, in the disk's own terms.
struct Effect {
    using Texts = std::vector<std::string>;
    using Fields = std::vector<std::pair<std::string, std::string>>;

    std::string kind;
    std::variant<bool, int, std::string, Texts, Fields> value;

    bool operator==(const Effect&) const = default;
};

// The effect as one JSON object, without a line break.
[[nodiscard]] std::string effectJSON(const Effect& effect);

// What was asked since it was last read, in order. Any thread.
class EffectLog {
public:
    EffectLog() = default;
    EffectLog(const EffectLog&) = delete;
    EffectLog& operator=(const EffectLog&) = delete;

    void add(Effect effect);
    // Hands over what stands in the log and empties it.
    [[nodiscard]] std::vector<Effect> take();

private:
    std::mutex mutex_;
    std::vector<Effect> effects_;
};

}  // namespace morvane::folder
