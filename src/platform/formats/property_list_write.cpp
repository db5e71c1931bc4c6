// Written here and not by the library, which looks every object up in a table that chosen values
// make slow, counts dates in 32 bits of seconds and loses integers beyond 2^63. The binary form is
// told in property_list_weight_binary.cpp.

#include <bit>
#include <cstdint>
#include <vector>

#include "model/letters.h"
#include "model/path_text.h"
#include "platform/formats/property_list.h"
#include "platform/formats/property_list_dates.h"
#include "platform/formats/property_list_weight.h"

namespace morvane {

namespace {

void append(std::string& bytes, std::uint64_t number, std::size_t width) {
    for (std::size_t left = width; left > 0; --left) {
        bytes += static_cast<char>(left > 8 ? 0 : number >> (8 * (left - 1)) & 255U);
    }
}

// The least of 1, 2, 4 and 8 bytes that holds `number`.
std::size_t widthOf(std::uint64_t number) {
    if (number < 0x100U) return 1;
    if (number < 0x10000U) return 2;
    return number < 0x100000000U ? 4 : 8;
}

void appendInteger(std::string& bytes, std::uint64_t number, std::size_t width) {
    bytes += static_cast<char>(0x10U | static_cast<unsigned>(std::countr_zero(width)));
    append(bytes, number, width);
}

// The first byte of an object of `size` units, with the size.
void appendMarker(std::string& bytes, unsigned kind, std::size_t size) {
    bytes += static_cast<char>(kind << 4U | (size < 15 ? static_cast<unsigned>(size) : 15U));
    if (size >= 15) appendInteger(bytes, size, widthOf(size));
}

void appendText(std::string& bytes, std::string_view text) {
    bool isASCII = true;
    for (const char byte : text) isASCII = isASCII && static_cast<unsigned char>(byte) < 0x80U;
    if (isASCII) {
        appendMarker(bytes, 0x5, text.size());
        bytes += text;
        return;
    }
    std::string units;
    while (!text.empty()) {
        const char32_t character = takeCharacter(text);
        if (character < 0x10000U) {
            append(units, character, 2);
        } else {
            append(units, 0xD800U + ((character - 0x10000U) >> 10U), 2);
            append(units, 0xDC00U + ((character - 0x10000U) & 0x3FFU), 2);
        }
    }
    appendMarker(bytes, 0x6, units.size() / 2);
    bytes += units;
}

bool isWritable(const std::string& text) {
    return text.find('\0') == std::string::npos && isUTF8(text);
}

// The objects in the order they are written: the children of one container stand one after another,
// the keys of a dictionary before its values.
class Objects {
public:
    explicit Objects(const PropertyList& top) {
        if (!isWritable(top, 0)) return;
        objects_.push_back({nullptr, &top, 0, 0, 0});
        for (std::size_t at = 0; at < objects_.size(); ++at) addChildren(at);
    }

    [[nodiscard]] std::string written() const {
        if (objects_.empty()) return {};
        std::string bytes = "bplist00";
        std::vector<std::size_t> offsets;
        offsets.reserve(objects_.size());
        for (const Object& object : objects_) {
            offsets.push_back(bytes.size());
            appendObject(bytes, object);
        }
        const std::size_t table = bytes.size();
        for (const std::size_t offset : offsets) append(bytes, offset, widthOf(table));
        append(bytes, 0, 6);
        append(bytes, widthOf(table), 1);
        append(bytes, referenceWidth(), 1);
        append(bytes, objects_.size(), 8);
        append(bytes, 0, 8);  // the top one
        append(bytes, table, 8);
        return bytes;
    }

private:
    struct Object {
        const std::string* key = nullptr;  // a key, or else a value
        const PropertyList* value = nullptr;
        std::size_t levels = 0;  // containers around it
        std::size_t firstChild = 0;
        std::size_t children = 0;
    };

    static bool isWritable(const PropertyList& list, std::size_t levels) {
        if (const std::string* text = list.text()) return morvane::isWritable(*text);
        if (list.array() || list.dictionary()) return levels < PropertyListLimits::levels;
        return !std::holds_alternative<std::monostate>(list.value);
    }

    void addChildren(std::size_t at) {
        if (!objects_[at].value) return;
        const PropertyList& list = *objects_[at].value;
        const std::size_t levels = objects_[at].levels + 1;
        objects_[at].firstChild = objects_.size();
        std::vector<const PropertyList*> values;
        if (const auto* array = list.array()) {
            for (const PropertyList& item : *array) {
                if (isWritable(item, levels)) values.push_back(&item);
            }
        } else if (const auto* dictionary = list.dictionary()) {
            for (const auto& [key, item] : *dictionary) {
                if (!morvane::isWritable(key) || !isWritable(item, levels)) continue;
                objects_.push_back({&key, nullptr, levels, 0, 0});
                values.push_back(&item);
            }
        }
        for (const PropertyList* value : values) {
            objects_.push_back({nullptr, value, levels, 0, 0});
        }
        objects_[at].children = values.size();
    }

    [[nodiscard]] std::size_t referenceWidth() const { return widthOf(objects_.size()); }

    void appendReferences(std::string& bytes, const Object& object, std::size_t count) const {
        for (std::size_t at = 0; at < count; ++at) {
            append(bytes, object.firstChild + at, referenceWidth());
        }
    }

    void appendObject(std::string& bytes, const Object& object) const {
        if (object.key) {
            appendText(bytes, *object.key);
            return;
        }
        const PropertyList::Value& value = object.value->value;
        if (const auto* boolean = std::get_if<bool>(&value)) {
            bytes += *boolean ? '\x09' : '\x08';
        } else if (const auto* whole = std::get_if<std::int64_t>(&value)) {
            const auto bits = static_cast<std::uint64_t>(*whole);
            appendInteger(bytes, bits, widthOf(bits));
        } else if (const auto* large = std::get_if<std::uint64_t>(&value)) {
            appendInteger(bytes, *large, 16);
        } else if (const auto* real = std::get_if<double>(&value)) {
            bytes += '\x23';
            append(bytes, std::bit_cast<std::uint64_t>(*real), 8);
        } else if (const auto* text = std::get_if<std::string>(&value)) {
            appendText(bytes, *text);
        } else if (const auto* date = std::get_if<Instant>(&value)) {
            bytes += '\x33';
            append(bytes, std::bit_cast<std::uint64_t>(listSecondsFromInstant(*date)), 8);
        } else if (const auto* data = std::get_if<PropertyList::Data>(&value)) {
            appendMarker(bytes, 0x4, data->bytes.size());
            bytes += data->bytes;
        } else if (const auto* reference = std::get_if<PropertyList::Reference>(&value)) {
            const std::size_t width = widthOf(reference->value);
            bytes += static_cast<char>(0x80U | (width - 1));
            append(bytes, reference->value, width);
        } else if (std::holds_alternative<PropertyList::Array>(value)) {
            appendMarker(bytes, 0xA, object.children);
            appendReferences(bytes, object, object.children);
        } else {
            appendMarker(bytes, 0xD, object.children);
            appendReferences(bytes, object, 2 * object.children);
        }
    }

    std::vector<Object> objects_;
};

}  // namespace

std::string writeBinaryPropertyList(const PropertyList& list) {
    return Objects(list).written();
}

}  // namespace morvane
