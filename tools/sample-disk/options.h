#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "moment.h"

namespace morvane::sample {

/// What the command line asks for.
struct Options {
    std::string folder;
    std::optional<std::int64_t> size;     ///< bytes in files; by the free room when absent
    std::optional<std::int64_t> entries;  ///< entries below root/; no benchmark tree when absent
    std::uint64_t seed = 1;
    std::optional<Moment> now;  ///< the present moment when absent
    bool help = false;          ///< only the usage is wanted; nothing else has been checked
};

/// The options, or one line that says what is wrong with them.
[[nodiscard]] std::variant<Options, std::string> parseOptions(
    const std::vector<std::string>& arguments);

/// The usage, several lines, ending in a line feed.
[[nodiscard]] std::string usageText();

}  // namespace morvane::sample
