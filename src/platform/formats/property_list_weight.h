#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

namespace morvane {

// What a property list may weigh. The library that parses makes an object anew for every reference
// to it and goes down levels by recursion, so that 400 bytes can ask for gigabytes or for the whole
// stack; every reference therefore counts here as the object it stands for.
struct PropertyListLimits {
    static constexpr std::size_t bytes = std::size_t{32} << 20;
    static constexpr std::size_t levels = 512;      // dictionaries and arrays inside one another
    static constexpr std::size_t objects = 200000;  // keys count as well
    static constexpr std::size_t text = std::size_t{64} << 20;  // bytes of texts and data
    static constexpr std::size_t comparisons = 16000000;        // of keys, see dictionary_work.h
};

enum class PropertyListForm : std::uint8_t { binary, xml };

// The form of `bytes`, where they are within the limits and put together soundly enough for the
// library to parse them; nothing where they are not. Takes no more memory than a small part of the
// input and never recurses. XML that declares anything of its own (an internal document type
// subset, unknown tags) is refused. Any thread.
[[nodiscard]] std::optional<PropertyListForm> weighPropertyList(std::string_view bytes);

// The two ways of weighing, for a list of at most PropertyListLimits::bytes.
[[nodiscard]] bool weighBinaryPropertyList(std::string_view bytes);
[[nodiscard]] bool weighXMLPropertyList(std::string_view bytes);

}  // namespace morvane
