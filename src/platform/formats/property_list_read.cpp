#include <bit>
#include <cstdint>
#include <cstdlib>
#include <limits>

#include "model/path_text.h"
#include "platform/formats/property_list.h"
#include "platform/formats/property_list_dates.h"
#include "platform/formats/property_list_library.h"
#include "platform/formats/property_list_weight.h"

namespace morvane {

namespace {

PropertyList converted(plist_t node);

PropertyList::Value integerValue(plist_t node) {
    std::uint64_t bits = 0;
    plist_get_uint_val(node, &bits);
    // 0x14 marks an integer of 16 bytes, which only one beyond 2^63 needs.
    const bool isLarge =
        bits > static_cast<std::uint64_t>(std::numeric_limits<std::int64_t>::max()) &&
        objectBytes(node).starts_with('\x14');
    if (isLarge) return bits;
    return static_cast<std::int64_t>(bits);
}

PropertyList::Value dateValue(plist_t node) {
    const std::string object = objectBytes(node);
    if (object.size() != 9 || object[0] != '\x33') return std::monostate();
    std::uint64_t bits = 0;
    for (std::size_t at = 1; at < object.size(); ++at) {
        bits = bits << 8U | static_cast<std::uint8_t>(object[at]);
    }
    const std::optional<Instant> instant = instantFromListSeconds(std::bit_cast<double>(bits));
    if (!instant) return std::monostate();
    return *instant;
}

PropertyList::Value textValue(plist_t node) {
    std::uint64_t length = 0;
    const char* start = plist_get_string_ptr(node, &length);
    if (!start) return std::string();
    std::string_view text(start, length);
    text = text.substr(0, text.find('\0'));
    if (!isUTF8(text)) return std::monostate();
    return std::string(text);
}

PropertyList::Value dataValue(plist_t node) {
    std::uint64_t length = 0;
    const char* start = plist_get_data_ptr(node, &length);
    return PropertyList::Data{start ? std::string(start, length) : std::string()};
}

PropertyList::Value arrayValue(plist_t node) {
    PropertyList::Array array;
    array.reserve(plist_array_get_size(node));
    plist_array_iter iterator = nullptr;
    plist_array_new_iter(node, &iterator);
    plist_t item = nullptr;
    for (plist_array_next_item(node, iterator, &item); item;
         plist_array_next_item(node, iterator, &item)) {
        array.push_back(converted(item));
    }
    std::free(iterator);
    return array;
}

PropertyList::Value dictionaryValue(plist_t node) {
    PropertyList::Dictionary dictionary;
    plist_dict_iter iterator = nullptr;
    plist_dict_new_iter(node, &iterator);
    char* key = nullptr;
    plist_t item = nullptr;
    for (plist_dict_next_item(node, iterator, &key, &item); item;
         plist_dict_next_item(node, iterator, &key, &item)) {
        if (key && isUTF8(key)) dictionary.insert_or_assign(key, converted(item));
        std::free(key);
        key = nullptr;
    }
    std::free(iterator);
    return dictionary;
}

PropertyList::Value convertedValue(plist_t node) {
    switch (plist_get_node_type(node)) {
        case PLIST_BOOLEAN: {
            std::uint8_t isTrue = 0;
            plist_get_bool_val(node, &isTrue);
            return isTrue != 0;
        }
        case PLIST_UINT:
            return integerValue(node);
        case PLIST_REAL: {
            double real = 0;
            plist_get_real_val(node, &real);
            return real;
        }
        case PLIST_STRING:
            return textValue(node);
        case PLIST_DATE:
            return dateValue(node);
        case PLIST_DATA:
            return dataValue(node);
        case PLIST_UID: {
            std::uint64_t number = 0;
            plist_get_uid_val(node, &number);
            return PropertyList::Reference{number};
        }
        case PLIST_ARRAY:
            return arrayValue(node);
        case PLIST_DICT:
            return dictionaryValue(node);
        case PLIST_KEY:
        case PLIST_NONE:
            break;
    }
    return std::monostate();
}

PropertyList converted(plist_t node) {
    return {convertedValue(node)};
}

}  // namespace

std::optional<PropertyList> readPropertyList(std::string_view bytes) {
    if (bytes.starts_with("\xEF\xBB\xBF")) bytes.remove_prefix(3);
    const std::optional<PropertyListForm> form = weighPropertyList(bytes);
    if (!form) return std::nullopt;
    plist_t parsed = nullptr;
    const auto length = static_cast<std::uint32_t>(bytes.size());
    if (*form == PropertyListForm::binary) {
        // NOLINTNEXTLINE(bugprone-suspicious-stringview-data-usage): the length stands beside it
        plist_from_bin(bytes.data(), length, &parsed);
    } else {
        // NOLINTNEXTLINE(bugprone-suspicious-stringview-data-usage): the length stands beside it
        plist_from_xml(bytes.data(), length, &parsed);
    }
    const OwnedNode root(parsed);
    if (!root) return std::nullopt;
    return converted(root.get());
}

}  // namespace morvane
