#pragma once

#include <cstddef>
#include <string_view>

namespace morvane {

// What a JSON text may weigh.
struct JSONLimits {
    static constexpr std::size_t bytes = std::size_t{64} << 20;
    static constexpr std::size_t levels = 64;  // objects and arrays inside one another
    static constexpr std::size_t values = 8000000;
};

// Whether the text keeps to the limits, by its brackets, commas and strings alone: of a text that
// is JSON at all, these count every level exactly and no fewer values than there are. Takes no
// memory. Any thread.
[[nodiscard]] bool weighJSON(std::string_view text);

}  // namespace morvane
