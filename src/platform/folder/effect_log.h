#pragma once

#include <functional>
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

// What was asked since it was last read, in order, or handed on at once. Any thread.
class EffectLog {
public:
    EffectLog() = default;
    EffectLog(const EffectLog&) = delete;
    EffectLog& operator=(const EffectLog&) = delete;

    void add(Effect effect);
    // From now on each effect is handed to `sink` on the thread it is asked on, and none is kept.
    // What was kept before is handed over first. Once.
    void handTo(std::function<void(const Effect&)> sink);
    // Hands over what stands in the log and empties it.
    [[nodiscard]] std::vector<Effect> take();

private:
    std::mutex mutex_;
    std::vector<Effect> effects_;
    std::function<void(const Effect&)> sink_;
};

}  // namespace morvane::folder
