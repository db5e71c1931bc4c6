#pragma once

#include <nlohmann/json.hpp>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "ui/screens/screen.h"

namespace morvane::screens {

using Json = nlohmann::json;

// What a screen tells, as JSON.
class JsonWriter final : public FieldWriter {
public:
    void beginRecord() override { open(Json::object()); }
    void endRecord() override { close(); }
    void beginList() override { open(Json::array()); }
    void endList() override { close(); }
    void name(std::string_view name) override { names_.back() = name; }
    void null() override { add(nullptr); }
    void boolean(bool value) override { add(value); }
    void integer(std::int64_t value) override { add(value); }
    void number(double value) override { add(value); }
    void text(std::string_view value) override { add(std::string(value)); }

    [[nodiscard]] Json take() { return std::move(whole_); }

private:
    void open(Json value) {
        values_.push_back(std::move(value));
        names_.emplace_back();
    }
    void close() {
        Json closed = std::move(values_.back());
        values_.pop_back();
        names_.pop_back();
        add(std::move(closed));
    }
    void add(Json value) {
        if (values_.empty()) {
            whole_ = std::move(value);
        } else if (values_.back().is_array()) {
            values_.back().push_back(std::move(value));
        } else {
            // A name that comes twice would hide a field.
            values_.back()[values_.back().contains(names_.back()) ? "twice: " + names_.back()
                                                                  : names_.back()] =
                std::move(value);
        }
    }

    std::vector<Json> values_;
    std::vector<std::string> names_;
    Json whole_;
};

[[nodiscard]] inline Json told(const Screen& screen) {
    JsonWriter writer;
    screen.write(writer);
    return writer.take();
}

// A button as it is where nothing else is said of it.
[[nodiscard]] inline Json button(const std::string& label, const Json& otherwise = {}) {
    Json made{{"label", label}, {"symbol", nullptr}, {"enabled", true},   {"kind", "bordered"},
              {"key", nullptr}, {"busy", false},     {"tooltip", nullptr}};
    if (otherwise.is_object()) made.update(otherwise);
    return made;
}

}  // namespace morvane::screens
