#include "property_list.h"

#include <cstdlib>
#include <utility>

namespace morvane::sample {
namespace {

/// Property lists count their dates from 2001-01-01, not from 1970.
constexpr Moment referenceDate = 978'307'200;

std::string taken(char* bytes, std::uint32_t length) {
    std::string text(bytes == nullptr ? "" : bytes, bytes == nullptr ? 0 : length);
    std::free(bytes);
    return text;
}

}  // namespace

PropertyList PropertyList::dictionary() {
    return PropertyList(plist_new_dict());
}

PropertyList PropertyList::array() {
    return PropertyList(plist_new_array());
}

PropertyList::PropertyList(PropertyList&& other) noexcept : node_(other.release()) {}

PropertyList::~PropertyList() {
    if (node_ != nullptr) {
        plist_free(node_);
    }
}

plist_t PropertyList::release() {
    return std::exchange(node_, nullptr);
}

PropertyList& PropertyList::put(std::string_view key, plist_t value) {
    plist_dict_set_item(node_, std::string(key).c_str(), value);
    return *this;
}

PropertyList& PropertyList::text(std::string_view key, std::string_view value) {
    return put(key, plist_new_string(std::string(value).c_str()));
}

PropertyList& PropertyList::number(std::string_view key, std::uint64_t value) {
    return put(key, plist_new_uint(value));
}

PropertyList& PropertyList::flag(std::string_view key, bool value) {
    return put(key, plist_new_bool(value ? 1 : 0));
}

PropertyList& PropertyList::date(std::string_view key, Moment value) {
    return put(key, plist_new_date(static_cast<std::int32_t>(value - referenceDate), 0));
}

PropertyList& PropertyList::data(std::string_view key, std::string_view bytes) {
    return put(key, plist_new_data(bytes.data(), bytes.size()));
}

PropertyList& PropertyList::child(std::string_view key, PropertyList value) {
    return put(key, value.release());
}

PropertyList& PropertyList::append(std::string_view value) {
    plist_array_append_item(node_, plist_new_string(std::string(value).c_str()));
    return *this;
}

PropertyList& PropertyList::append(PropertyList value) {
    plist_array_append_item(node_, value.release());
    return *this;
}

std::string PropertyList::xml() const {
    char* bytes = nullptr;
    std::uint32_t length = 0;
    plist_to_xml(node_, &bytes, &length);
    return taken(bytes, length);
}

std::string PropertyList::binary() const {
    char* bytes = nullptr;
    std::uint32_t length = 0;
    plist_to_bin(node_, &bytes, &length);
    return taken(bytes, length);
}

}  // namespace morvane::sample
