#include "platform/folder/effect_log.h"

#include <nlohmann/json.hpp>

namespace morvane::folder {

namespace {

nlohmann::ordered_json valueJSON(const Effect::Fields& fields) {
    auto object = nlohmann::ordered_json::object();
    for (const auto& [name, text] : fields) object[name] = text;
    return object;
}

template <class T>
nlohmann::ordered_json valueJSON(const T& value) {
    return value;
}

}  // namespace

std::string effectJSON(const Effect& effect) {
    auto object = nlohmann::ordered_json::object();
    object[effect.kind] =
        std::visit([](const auto& value) { return valueJSON(value); }, effect.value);
    return object.dump(-1, ' ', false, nlohmann::ordered_json::error_handler_t::replace);
}

void EffectLog::add(Effect effect) {
    const std::lock_guard lock(mutex_);
    if (sink_) {
        sink_(effect);
    } else {
        effects_.push_back(std::move(effect));
    }
}

void EffectLog::handTo(std::function<void(const Effect&)> sink) {
    const std::lock_guard lock(mutex_);
    sink_ = std::move(sink);
    for (const Effect& effect : std::exchange(effects_, {})) sink_(effect);
}

std::vector<Effect> EffectLog::take() {
    const std::lock_guard lock(mutex_);
    return std::exchange(effects_, {});
}

}  // namespace morvane::folder
