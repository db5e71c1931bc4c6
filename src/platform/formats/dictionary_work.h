#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace morvane {

// How many keys the library has to compare while it fills one dictionary. It looks each new key up
// among those already there, in a table of fixed size, so that keys chosen to meet in one place of
// it turn a list of a few megabytes into minutes.
class DictionaryWork {
public:
    // Adds a key as it stands in the markup. Gives the number of keys it meets, at most about.
    [[nodiscard]] std::size_t add(std::string_view key);

private:
    // So few keys cost little however they meet, and most dictionaries have fewer.
    static constexpr std::size_t unweighed = 500;

    std::size_t keys_ = 0;
    std::size_t unknown_ = 0;  // keys whose place is not known
    std::vector<std::uint32_t> places_;
};

}  // namespace morvane
