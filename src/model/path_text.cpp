#include "model/path_text.h"

#include <vector>

namespace morvane {

namespace {

unsigned char byteAt(std::string_view bytes, std::size_t index) {
    return static_cast<unsigned char>(bytes[index]);
}

int hexValue(char digit) {
    if (digit >= '0' && digit <= '9') return digit - '0';
    if (digit >= 'A' && digit <= 'F') return digit - 'A' + 10;
    if (digit >= 'a' && digit <= 'f') return digit - 'a' + 10;
    return -1;
}

// The value of an escape "%XX" at `index` when it is one that this text form writes, else -1.
int escapeAt(std::string_view text, std::size_t index) {
    if (text[index] != '%' || index + 2 >= text.size()) return -1;
    const int high = hexValue(text[index + 1]);
    const int low = hexValue(text[index + 2]);
    if (high < 0 || low < 0) return -1;
    const int value = high * 16 + low;
    return value == 0x25 || value >= 0x80 ? value : -1;
}

bool needsEscapes(std::string_view bytes) {
    for (std::size_t index = 0; index < bytes.size();) {
        const std::size_t length = utf8SequenceLength(bytes.substr(index));
        if (length == 0 || escapeAt(bytes, index) >= 0) return true;
        index += length;
    }
    return false;
}

}  // namespace

std::size_t utf8SequenceLength(std::string_view bytes) {
    if (bytes.empty()) return 0;
    const unsigned char first = byteAt(bytes, 0);
    if (first < 0x80) return 1;
    std::size_t length = 0;
    unsigned char lowest = 0x80;
    unsigned char highest = 0xBF;
    if (first >= 0xC2 && first <= 0xDF) {
        length = 2;
    } else if (first >= 0xE0 && first <= 0xEF) {
        length = 3;
        if (first == 0xE0) lowest = 0xA0;
        if (first == 0xED) highest = 0x9F;
    } else if (first >= 0xF0 && first <= 0xF4) {
        length = 4;
        if (first == 0xF0) lowest = 0x90;
        if (first == 0xF4) highest = 0x8F;
    } else {
        return 0;
    }
    if (bytes.size() < length) return 0;
    if (byteAt(bytes, 1) < lowest || byteAt(bytes, 1) > highest) return 0;
    for (std::size_t index = 2; index < length; ++index) {
        if ((byteAt(bytes, index) & 0xC0U) != 0x80U) return 0;
    }
    return length;
}

bool isUTF8(std::string_view bytes) {
    for (std::size_t index = 0; index < bytes.size();) {
        const std::size_t length = utf8SequenceLength(bytes.substr(index));
        if (length == 0) return false;
        index += length;
    }
    return true;
}

std::string pathText(const std::filesystem::path& path) {
    const std::string& bytes = path.native();
    if (!needsEscapes(bytes)) return bytes;
    constexpr char digits[] = "0123456789ABCDEF";
    std::string text;
    for (std::size_t index = 0; index < bytes.size();) {
        const std::size_t length = utf8SequenceLength(std::string_view(bytes).substr(index));
        if (length == 0) {
            const unsigned char byte = byteAt(bytes, index);
            text += '%';
            text += digits[byte >> 4U];
            text += digits[byte & 0x0FU];
            ++index;
        } else if (bytes[index] == '%') {
            text += "%25";
            ++index;
        } else {
            text.append(bytes, index, length);
            index += length;
        }
    }
    return text;
}

std::string nameText(const std::filesystem::path& name) {
    return isUTF8(name.native()) ? name.native() : pathText(name);
}

std::filesystem::path pathFromText(std::string_view text) {
    // A text without a single escape is the path itself; one with an escape has every "%" escaped.
    std::string bytes;
    bytes.reserve(text.size());
    for (std::size_t index = 0; index < text.size();) {
        const int value = escapeAt(text, index);
        if (value >= 0) {
            bytes += static_cast<char>(value);
            index += 3;
        } else {
            bytes += text[index++];
        }
    }
    return std::filesystem::path(std::move(bytes));
}

std::filesystem::path standardised(const std::filesystem::path& path) {
    const std::string& bytes = path.native();
    std::vector<std::string_view> kept;
    for (std::size_t start = 0; start < bytes.size();) {
        std::size_t end = bytes.find('/', start);
        if (end == std::string::npos) end = bytes.size();
        const std::string_view segment = std::string_view(bytes).substr(start, end - start);
        if (segment == "..") {
            if (!kept.empty()) kept.pop_back();
        } else if (!segment.empty() && segment != ".") {
            kept.push_back(segment);
        }
        start = end + 1;
    }
    std::string result;
    for (std::string_view segment : kept) {
        result += '/';
        result += segment;
    }
    return result.empty() ? std::filesystem::path("/") : std::filesystem::path(std::move(result));
}

bool isInside(const std::filesystem::path& path, const std::filesystem::path& folder) {
    const std::filesystem::path cleanPath = standardised(path);
    const std::filesystem::path cleanFolder = standardised(folder);
    const std::string& inner = cleanPath.native();
    const std::string& outer = cleanFolder.native();
    if (inner == outer || outer == "/") return true;
    return inner.size() > outer.size() && inner.starts_with(outer) && inner[outer.size()] == '/';
}

std::string abbreviatedWithTilde(const std::filesystem::path& path,
                                 const std::filesystem::path& home) {
    const std::string& bytes = path.native();
    const std::string& prefix = home.native();
    if (prefix.size() > 1 && bytes.starts_with(prefix) &&
        (bytes.size() == prefix.size() || bytes[prefix.size()] == '/')) {
        return pathText("~" + bytes.substr(prefix.size()));
    }
    return pathText(path);
}

}  // namespace morvane
