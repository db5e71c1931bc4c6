#include "ui/screens/screen.h"

namespace morvane::screens {

namespace {

std::optional<std::string> readValue(const Control& control, const PressRequest& request,
                                     Press& press) {
    const std::string where = " at \"" + request.control.substr(0, 80) + "\"";
    switch (control.kind) {
        case Control::Kind::plain:
            if (std::holds_alternative<std::monostate>(request.value)) return std::nullopt;
            return "no value is taken" + where;
        case Control::Kind::toggle:
            if (const auto* on = std::get_if<bool>(&request.value)) {
                press.on = *on;
                return std::nullopt;
            }
            return "the value is not a boolean" + where;
        case Control::Kind::choice:
            if (const auto* index = std::get_if<std::int64_t>(&request.value)) {
                press.index = *index;
                if (*index >= 0 && *index < control.optionCount) return std::nullopt;
                return "there is no option " + std::to_string(*index) + where;
            }
            return "the value is not the number of an option" + where;
        case Control::Kind::text:
            if (const auto* text = std::get_if<std::string>(&request.value)) {
                press.text = *text;
                return std::nullopt;
            }
            return "the value is not a text" + where;
    }
    return std::nullopt;
}

}  // namespace

std::variant<Screen::Act, std::string> Screen::press(const PressRequest& request) const {
    ControlOrRefusal found = find(request);
    if (auto* refusal = std::get_if<std::string>(&found)) return std::move(*refusal);
    const auto handler = handlers_.find(request.control);
    if (handler == handlers_.end()) {
        return "\"" + request.control.substr(0, 80) + "\" is no control";
    }
    Press press{.row = request.row.value_or("")};
    if (auto refusal = readValue(std::get<Control>(found), request, press)) {
        return *std::move(refusal);
    }
    return [handle = handler->second, press = std::move(press)] { handle(press); };
}

}  // namespace morvane::screens
