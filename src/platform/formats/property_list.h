#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "model/instant.h"

namespace morvane {

// One value of a property list, with all it holds. The accessors give nothing for a value of
// another kind, so that a wrong type reads like an absent one.
struct PropertyList {
    struct Data {
        std::string bytes;

        bool operator==(const Data&) const = default;
    };
    // A reference between the objects of a keyed archive.
    struct Reference {
        std::uint64_t value = 0;

        bool operator==(const Reference&) const = default;
    };
    using Array = std::vector<PropertyList>;
    using Dictionary = std::map<std::string, PropertyList>;
    // std::monostate stands for what was there but could not be held: a text that is not UTF-8, a
    // date that is no number. Dates outside the years 1678 to 2261 are held back to their ends.
    // std::uint64_t holds an integer beyond std::int64_t, and no other.
    using Value = std::variant<std::monostate, bool, std::int64_t, std::uint64_t, double,
                               std::string, Instant, Data, Reference, Array, Dictionary>;

    Value value;

    // The pointers live as long as this value and stand for nothing when null.
    [[nodiscard]] const std::string* text() const;
    [[nodiscard]] const std::string* data() const;
    [[nodiscard]] const Array* array() const;
    [[nodiscard]] const Dictionary* dictionary() const;

    [[nodiscard]] std::optional<Instant> date() const;
    [[nodiscard]] std::optional<bool> boolean() const;
    // An integer that fits; neither a boolean nor a real counts as one.
    [[nodiscard]] std::optional<std::int64_t> integer() const;
    // An integer of any size or a real.
    [[nodiscard]] std::optional<double> number() const;

    // The value under `key`; null where this is no dictionary or has no such key.
    [[nodiscard]] const PropertyList* find(std::string_view key) const;

    bool operator==(const PropertyList& other) const;
};

// Reads a property list, XML or binary, from outside. Nothing when it is malformed or heavier than
// property_list_weight.h allows. Dates are to the microsecond. Where a dictionary names a key
// twice, the later value counts; a key that is not UTF-8 is left out. A text, and a key, ends at
// the first NUL in it. Any thread.
[[nodiscard]] std::optional<PropertyList> readPropertyList(std::string_view bytes);

// The binary form, as the platform's own tools read it; dates keep their microseconds. Values that
// stand for nothing, that lie deeper than readPropertyList goes, and texts it would not give back
// are left out. Empty when nothing is left to write. Any thread.
[[nodiscard]] std::string writeBinaryPropertyList(const PropertyList& list);

}  // namespace morvane
