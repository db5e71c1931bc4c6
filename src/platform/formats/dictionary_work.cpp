#include "platform/formats/dictionary_work.h"

namespace morvane {

namespace {

// The library's own table and hash.
constexpr std::size_t placeCount = 4096;

std::size_t placeOf(std::string_view key) {
    std::uint32_t hash = 5381;
    for (const char byte : key) {
        hash = hash * 33U + static_cast<std::uint32_t>(static_cast<signed char>(byte));
    }
    return hash % placeCount;
}

// Whether the library may take the key for something else than these bytes.
bool isRewritten(std::string_view key) {
    constexpr std::string_view blank = " \t\r\n";
    return key.find_first_of("&<") != std::string_view::npos ||
           (!key.empty() && (blank.find(key.front()) != std::string_view::npos ||
                             blank.find(key.back()) != std::string_view::npos));
}

}  // namespace

std::size_t DictionaryWork::add(std::string_view key) {
    if (++keys_ <= unweighed) return 0;
    if (isRewritten(key)) {
        ++unknown_;
        return keys_ - 1;
    }
    if (places_.empty()) places_.resize(placeCount);
    return places_[placeOf(key)]++ + unknown_;
}

}  // namespace morvane
