#pragma once

#include <nlohmann/json_fwd.hpp>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/app_state.h"
#include "model/case_names.h"

namespace morvane::driver {

// Reads the values of one request's object by name and keeps the first thing that was wrong with
// them as one sentence. A value that was wrong reads as an empty one; the request is then refused.
class Arguments {
public:
    // `values` may be null: no values. `what` is what the object holds: "argument", "field".
    Arguments(const nlohmann::json* values, std::string_view what) : values_(values), what_(what) {}

    [[nodiscard]] bool has(std::string_view name) const;
    // The value is there and not null.
    [[nodiscard]] bool hasValue(std::string_view name) const;

    [[nodiscard]] std::string text(std::string_view name);
    [[nodiscard]] std::optional<std::string> optionalText(std::string_view name);
    [[nodiscard]] bool boolean(std::string_view name);
    [[nodiscard]] double number(std::string_view name);
    [[nodiscard]] std::optional<double> optionalNumber(std::string_view name);
    [[nodiscard]] std::int64_t integer(std::string_view name);
    [[nodiscard]] std::vector<std::string> texts(std::string_view name);
    [[nodiscard]] Instant date(std::string_view name);
    [[nodiscard]] std::optional<Instant> optionalDate(std::string_view name);
    [[nodiscard]] std::filesystem::path path(std::string_view name);
    [[nodiscard]] std::vector<std::filesystem::path> paths(std::string_view name);

    template <class Case>
    [[nodiscard]] Case oneOf(std::string_view name) {
        const std::string read = text(name);
        const std::optional<Case> found = caseFrom<Case>(read);
        if (!found) refuse(name, "is none of the cases:", read);
        return found.value_or(Case{});
    }
    template <class Case>
    [[nodiscard]] std::optional<Case> optionalOneOf(std::string_view name) {
        read_.emplace_back(name);
        if (!hasValue(name)) return std::nullopt;
        return oneOf<Case>(name);
    }

    // Names the value and what is wrong with it, and with `what` what it holds; the first sentence
    // stays.
    void refuse(std::string_view name, std::string_view why,
                const std::optional<std::string_view>& what = {});
    // Refuses names that were never asked for.
    void refuseUnknown();
    [[nodiscard]] const std::optional<std::string>& error() const { return error_; }

private:
    const nlohmann::json* value(std::string_view name);

    const nlohmann::json* values_;
    std::string_view what_;
    std::vector<std::string> read_;
    std::optional<std::string> error_;
};

}  // namespace morvane::driver
