#include "platform/formats/property_list.h"

namespace morvane {

const std::string* PropertyList::text() const {
    return std::get_if<std::string>(&value);
}

const std::string* PropertyList::data() const {
    const Data* held = std::get_if<Data>(&value);
    return held ? &held->bytes : nullptr;
}

const PropertyList::Array* PropertyList::array() const {
    return std::get_if<Array>(&value);
}

const PropertyList::Dictionary* PropertyList::dictionary() const {
    return std::get_if<Dictionary>(&value);
}

std::optional<Instant> PropertyList::date() const {
    const Instant* held = std::get_if<Instant>(&value);
    return held ? std::optional(*held) : std::nullopt;
}

std::optional<bool> PropertyList::boolean() const {
    const bool* held = std::get_if<bool>(&value);
    return held ? std::optional(*held) : std::nullopt;
}

std::optional<std::int64_t> PropertyList::integer() const {
    const std::int64_t* held = std::get_if<std::int64_t>(&value);
    return held ? std::optional(*held) : std::nullopt;
}

std::optional<double> PropertyList::number() const {
    if (const auto* real = std::get_if<double>(&value)) return *real;
    if (const auto* whole = std::get_if<std::int64_t>(&value)) return static_cast<double>(*whole);
    if (const auto* large = std::get_if<std::uint64_t>(&value)) return static_cast<double>(*large);
    return std::nullopt;
}

const PropertyList* PropertyList::find(std::string_view key) const {
    const Dictionary* held = dictionary();
    if (!held) return nullptr;
    const auto found = held->find(std::string(key));
    return found == held->end() ? nullptr : &found->second;
}

bool PropertyList::operator==(const PropertyList& other) const {
    return value == other.value;
}

}  // namespace morvane
