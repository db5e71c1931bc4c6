#include "ui/screens/controls.h"

namespace morvane::screens {

namespace {

std::string named(const std::string& text) {
    return "\"" + text.substr(0, 80) + "\"";
}

}  // namespace

std::vector<std::string_view> keysOf(std::string_view control) {
    std::vector<std::string_view> keys;
    while (true) {
        const std::size_t dot = control.find('.');
        keys.push_back(control.substr(0, dot));
        if (dot == std::string_view::npos) return keys;
        control.remove_prefix(dot + 1);
    }
}

namespace detail {

std::optional<std::string> rowRefusal(int lists, const PressRequest& request) {
    if (lists == noSuchKey) return "there is no control " + named(request.control);
    if (lists > 0 && !request.row) return "the control " + named(request.control) + " needs a row";
    if (lists == 0 && request.row) {
        return "the control " + named(request.control) + " has no row " + named(*request.row);
    }
    return std::nullopt;
}

ControlOrRefusal toldOutcome(Outcome outcome, const Control& control, const PressRequest& request) {
    switch (outcome) {
        case Outcome::found:
            if (control.enabled) return control;
            return "the control " + named(request.control) + " is not enabled";
        case Outcome::unknownRow:
            return "there is no row " + named(request.row.value_or("")) + " at " +
                   named(request.control);
        case Outcome::unknownKey:
        case Outcome::notOnView:
            break;
    }
    return "the control " + named(request.control) + " is not on view";
}

}  // namespace detail

}  // namespace morvane::screens
