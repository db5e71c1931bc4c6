#include <bit>
#include <cstdint>
#include <utility>

#include "model/path_text.h"
#include "platform/formats/property_list.h"
#include "platform/formats/property_list_dates.h"
#include "platform/formats/property_list_library.h"
#include "platform/formats/property_list_weight.h"

namespace morvane {

namespace {

void appendBigEndian(std::string& bytes, std::uint64_t number) {
    for (unsigned shift = 64; shift > 0; shift -= 8) {
        bytes += static_cast<char>(number >> (shift - 8U) & 255U);
    }
}

bool isWritable(const std::string& text) {
    return text.find('\0') == std::string::npos && isUTF8(text);
}

// Makes the library's node of each kind of value; null for what is left out.
struct Converter {
    std::size_t levels = 0;  // how many containers stand around the value

    plist_t operator()(std::monostate) const { return nullptr; }
    plist_t operator()(bool value) const { return plist_new_bool(value ? 1 : 0); }
    plist_t operator()(std::int64_t value) const {
        return plist_new_uint(static_cast<std::uint64_t>(value));
    }
    plist_t operator()(std::uint64_t value) const {
        std::string object = "\x14" + std::string(8, '\0');
        appendBigEndian(object, value);
        return nodeFromObjectBytes(object).release();
    }
    plist_t operator()(double value) const { return plist_new_real(value); }
    plist_t operator()(const std::string& value) const {
        return isWritable(value) ? plist_new_string(value.c_str()) : nullptr;
    }
    plist_t operator()(Instant value) const {
        std::string object = "\x33";
        appendBigEndian(object, std::bit_cast<std::uint64_t>(listSecondsFromInstant(value)));
        return nodeFromObjectBytes(object).release();
    }
    plist_t operator()(const PropertyList::Data& value) const {
        return plist_new_data(value.bytes.data(), value.bytes.size());
    }
    plist_t operator()(PropertyList::Reference value) const { return plist_new_uid(value.value); }
    plist_t operator()(const PropertyList::Array& value) const {
        if (levels == PropertyListLimits::levels) return nullptr;
        plist_t array = plist_new_array();
        for (const PropertyList& item : value) {
            if (plist_t node = std::visit(Converter{levels + 1}, item.value)) {
                plist_array_append_item(array, node);
            }
        }
        return array;
    }
    plist_t operator()(const PropertyList::Dictionary& value) const {
        if (levels == PropertyListLimits::levels) return nullptr;
        plist_t dictionary = plist_new_dict();
        for (const auto& [key, item] : value) {
            if (!isWritable(key)) continue;
            if (plist_t node = std::visit(Converter{levels + 1}, item.value)) {
                plist_dict_set_item(dictionary, key.c_str(), node);
            }
        }
        return dictionary;
    }
};

}  // namespace

std::string writeBinaryPropertyList(const PropertyList& list) {
    const OwnedNode root(std::visit(Converter{}, list.value));
    if (!root) return {};
    char* bytes = nullptr;
    std::uint32_t length = 0;
    plist_to_bin(root.get(), &bytes, &length);
    std::string written = bytes ? std::string(bytes, length) : std::string();
    plist_to_bin_free(bytes);
    return written;
}

}  // namespace morvane
