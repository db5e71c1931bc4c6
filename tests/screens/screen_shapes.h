#pragma once

#include <algorithm>
#include <initializer_list>
#include <map>
#include <nlohmann/json.hpp>
#include <string>

namespace morvane::test {

// The keys of every screen and the kind of each value, written down once more by hand. A text says
// the kind: "text", "boolean", "whole" (number), "fraction" (0 to 1), or the name of one of
// `parts`; "?" behind it: or null. A list holds the shape of its entries.
inline const std::map<std::string, nlohmann::json>& screenParts() {
    static const auto parts = nlohmann::json::parse(R"({
        "button": {"label": "text", "symbol": "text?", "enabled": "boolean", "kind": "buttonKind",
                   "key": "text?", "busy": "boolean", "tooltip": "text?"},
        "switch": {"label": "text", "on": "boolean", "enabled": "boolean"},
        "choice": {"label": "text?", "options": ["text"], "selected": "whole?"},
        "badge": {"label": "text", "fill": "text", "ink": "text"},
        "footer": {"size": "text", "count": "text", "note": "text", "actions": ["button"]},
        "sidebarRow": {"id": "text", "label": "text", "symbol": "text", "selected": "boolean"},
        "diskNote": {"symbol": "text", "text": "text", "button": "button"},
        "note": {"text": "text", "button": "button"},
        "reviewPanel": {"title": "text", "text": "text", "location": "text", "reveal": "button?"},
        "idle": {"kind": "text", "title": "text", "text": "text", "button": "button",
                 "foot": "text"},
        "scanning": {"kind": "text", "title": "text", "amount": "text", "text": "text",
                     "fraction": "fraction", "location": "text",
                     "rows": [{"id": "text", "label": "text", "finished": "boolean",
                               "value": "text"}],
                     "button": "button"},
        "done": {"kind": "text", "title": "text", "text": "text", "scanAgain": "button",
                 "review": "button",
                 "cards": [{"id": "text", "label": "text", "symbol": "text", "amount": "text",
                            "text": "text", "call": "text"}],
                 "leftAlone": {"symbol": "text", "title": "text", "text": "text"}},
        "success": {"kind": "text", "title": "text", "text": "text", "openTrash": "button?",
                    "button": "button"},
        "empty": {"kind": "text", "title": "text", "text": "text", "detail": "text",
                  "button": "button"}})")
                                  .get<std::map<std::string, nlohmann::json>>();
    return parts;
}

inline const std::map<std::string, nlohmann::json>& screenShapes() {
    static const auto shapes = nlohmann::json::parse(R"({
        "shell": {"content": "text", "windowTitle": "text",
                  "menus": [{"title": "text",
                             "items": [{"id": "text", "label": "text", "key": "text?",
                                        "enabled": "boolean"}]}],
                  "menuBarExtra": {"visible": "boolean", "label": "text"}},
        "sidebar": {"brand": "text", "sections": [{"title": "text", "rows": ["sidebarRow"]}],
                    "settings": "sidebarRow",
                    "disk": {"name": "text", "free": "text", "fraction": "fraction"}},
        "overview": {"title": "text", "lastSwept": "text",
                     "disk": {"name": "text", "used": "text", "free": "text",
                              "segments": [{"id": "text", "label": "text", "size": "text",
                                            "color": "text", "fraction": "fraction"}],
                              "legendFree": {"label": "text", "size": "text"},
                              "note": "diskNote?"},
                     "card": "card"},
        "sweepReview": {"title": "text", "found": "text", "preset": "choice", "message": "text?",
                        "groups": [{"id": "text", "label": "text", "symbol": "text",
                                    "state": "check", "count": "text", "size": "text",
                                    "rows": [{"id": "text", "label": "text", "state": "check",
                                              "badge": "badge", "size": "text",
                                              "open": "boolean", "panel": "reviewPanel?"}]}],
                        "footer": "footer"},
        "settings": {"title": "text",
                     "sweeping": {"title": "text", "schedule": "choice", "remind": "switch",
                                  "notificationsOff": "note?", "menuBar": "switch",
                                  "trash": "switch", "trashCaption": "text"},
                     "ignoreList": {"title": "text",
                                    "rows": [{"id": "text", "symbol": "text", "label": "text",
                                              "exists": "boolean", "tooltip": "text",
                                              "show": "button?", "remove": "button"}],
                                    "add": "button", "footer": "text"},
                     "history": {"title": "text", "message": "text?",
                                 "rows": [{"id": "text", "date": "text", "summary": "text",
                                           "problem": "text?", "state": "historyState",
                                           "words": "text?", "restore": "button?"}],
                                 "footer": "text"},
                     "updates": {"title": "text", "check": "switch", "download": "switch",
                                 "version": "text", "button": "button"}}})")
                                   .get<std::map<std::string, nlohmann::json>>();
    return shapes;
}

// What is wrong with `value` at the place `where`, one line each; empty when it has that shape:
// every key is there, and no other.
inline std::string shapeFaults(const nlohmann::json& value, const nlohmann::json& shape,
                               const std::string& where) {
    const auto isOneOf = [&](std::initializer_list<const char*> names) {
        return std::find(names.begin(), names.end(), value) != names.end();
    };
    const auto unless = [&](bool holds, const std::string& what) {
        return holds ? "" : where + " is no " + what + ": " + value.dump().substr(0, 80) + "\n";
    };
    std::string faults;
    if (shape.is_object()) {
        if (!value.is_object()) return unless(false, "record");
        for (const auto& [key, inner] : shape.items()) {
            faults += value.contains(key) ? shapeFaults(value.at(key), inner, where + "." + key)
                                          : where + " lacks " + key + "\n";
        }
        for (const auto& [key, inner] : value.items()) {
            if (!shape.contains(key)) faults += where + " has a further key " + key + "\n";
        }
        return faults;
    }
    if (shape.is_array()) {
        if (!value.is_array()) return unless(false, "list");
        for (const auto& each : value) faults += shapeFaults(each, shape.front(), where + "[]");
        return faults;
    }
    std::string kind = shape;
    if (kind.back() == '?') {
        if (value.is_null()) return "";
        kind.pop_back();
    }
    if (kind == "text") return unless(value.is_string(), kind);
    if (kind == "boolean") return unless(value.is_boolean(), kind);
    if (kind == "whole") return unless(value.is_number_integer(), kind);
    if (kind == "fraction") {
        return unless(value.is_number() && value >= 0.0 && value <= 1.0, kind);
    }
    if (kind == "check") return unless(isOneOf({"on", "off", "mixed"}), kind);
    if (kind == "historyState") {
        return unless(isOneOf({"putBack", "deleted", "restorable", "emptied"}), kind);
    }
    if (kind == "buttonKind") {
        return unless(isOneOf({"prominent", "bordered", "plain", "link", "destructive"}), kind);
    }
    if (kind == "card") {
        if (!value.is_object() || !value.contains("kind")) return unless(false, kind);
        kind = value.at("kind");
    }
    const auto part = screenParts().find(kind);
    if (part == screenParts().end()) return unless(false, kind);
    return shapeFaults(value, part->second, where);
}

}  // namespace morvane::test
