#include "driver/screen_requests.h"

#include <nlohmann/json.hpp>
#include <utility>

#include "driver/screen_answer.h"
#include "platform/formats/json_fields.h"

namespace morvane::driver {

namespace {

using nlohmann::json;
using screens::PressRequest;
using screens::Screen;

std::variant<Screen*, std::string> screenNamed(const json& name, Program& program) {
    const std::optional<std::string> text = asText(name);
    if (!text) return "the name of the screen is not a text";
    if (Screen* screen = program.screens().named(*text)) return screen;
    return "there is no screen \"" + text->substr(0, 80) +
           "\"; there are: " + program.screens().names();
}

// Numbers that spell a whole one are whole.
std::optional<std::string> readValue(const json& value, PressRequest& press) {
    if (value.is_null()) return std::nullopt;
    if (const auto boolean = asBoolean(value)) {
        press.value = *boolean;
    } else if (const auto text = asText(value)) {
        press.value = *text;
    } else if (const auto integer = asInteger(value)) {
        press.value = *integer;
    } else {
        return "\"value\" is no boolean, number of an option or text";
    }
    return std::nullopt;
}

std::optional<std::string> readPress(const json& object, PressRequest& press) {
    for (const auto& [key, value] : object.items()) {
        if (key == "screen") continue;
        if (key == "value") {
            if (auto refusal = readValue(value, press)) return refusal;
            continue;
        }
        if (key != "control" && key != "row") {
            return "\"" + key.substr(0, 80) + "\" does not go with \"press\"";
        }
        if (key == "row" && value.is_null()) continue;
        std::optional<std::string> text = asText(value);
        // A row that goes by its place may be named by the number too.
        if (!text && key == "row") {
            if (const auto place = asInteger(value)) text = std::to_string(*place);
        }
        if (!text) return "\"" + key + "\" is not a text";
        if (key == "row") {
            press.row = std::move(text);
        } else {
            press.control = *std::move(text);
        }
    }
    return std::nullopt;
}

}  // namespace

std::variant<Answer, std::string> readScreen(const json& request, Program& program) {
    for (const auto& [key, value] : request.items()) {
        if (key != "screen") return "\"" + key.substr(0, 80) + "\" does not go with this screen";
    }
    auto screen = screenNamed(*find(request, "screen"), program);
    if (auto* refusal = std::get_if<std::string>(&screen)) return std::move(*refusal);
    return screenAnswer(*std::get<Screen*>(screen));
}

Work appearance(const json& request, Program& program) {
    auto screen = screenNamed(*find(request, "appear"), program);
    if (auto* refusal = std::get_if<std::string>(&screen)) return std::move(*refusal);
    return [screen = std::get<Screen*>(screen)] { screen->appear(); };
}

Work activation(const json& request, Program& program) {
    if (asBoolean(*find(request, "becameActive")) != true) return "\"becameActive\" is not true";
    return [&program] { program.screens().becameActive(); };
}

Work press(const json& request, Program& program) {
    const json& object = *find(request, "press");
    if (!object.is_object()) return "\"press\" is not an object";
    const json* name = find(object, "screen");
    if (name == nullptr) return "\"press\" names no screen";
    auto screen = screenNamed(*name, program);
    if (auto* refusal = std::get_if<std::string>(&screen)) return std::move(*refusal);
    PressRequest press;
    if (auto refusal = readPress(object, press)) return *std::move(refusal);
    if (find(object, "control") == nullptr) return "\"press\" names no control";
    return std::get<Screen*>(screen)->press(press);
}

}  // namespace morvane::driver
