// The binary form: "bplist00", the objects one after another, a table of their offsets, and a
// trailer of 32 bytes that says how wide offsets and references are, how many objects there are,
// which of them is the top one and where the table starts. All numbers are big-endian.

#include <vector>

#include "platform/formats/property_list_weight.h"

namespace morvane {

namespace {

constexpr std::size_t headerSize = 8;
constexpr std::size_t trailerSize = 32;

class BinaryWeight {
public:
    explicit BinaryWeight(std::string_view bytes) : bytes_(bytes) {}

    bool isWithinLimits() {
        if (!readTrailer()) return false;
        onPath_.assign(count_, false);
        if (!enter(top_, false)) return false;
        while (!path_.empty()) {
            Container& container = path_.back();
            if (container.next == container.references) {
                onPath_[container.object] = false;
                path_.pop_back();
                continue;
            }
            const std::size_t at = container.next++;
            const std::size_t object =
                number(container.start + at * referenceSize_, referenceSize_);
            if (!enter(object, at < container.keys)) return false;
        }
        return true;
    }

private:
    // A dictionary or array that is being gone through; a dictionary has its keys first, then as
    // many values.
    struct Container {
        std::size_t object = 0;
        std::size_t start = 0;
        std::size_t references = 0;
        std::size_t keys = 0;
        std::size_t next = 0;
    };

    [[nodiscard]] std::uint8_t byte(std::size_t at) const {
        return static_cast<std::uint8_t>(bytes_[at]);
    }

    // The caller has seen to it that the bytes are there; a number too wide wraps, and is then
    // refused as every other wrong one.
    [[nodiscard]] std::size_t number(std::size_t at, std::size_t width) const {
        std::size_t value = 0;
        for (std::size_t index = 0; index < width; ++index) value = value << 8U | byte(at + index);
        return value;
    }

    bool readTrailer() {
        if (bytes_.size() < headerSize + trailerSize || !bytes_.starts_with("bplist00")) {
            return false;
        }
        const std::size_t trailer = bytes_.size() - trailerSize;
        offsetSize_ = byte(trailer + 6);
        referenceSize_ = byte(trailer + 7);
        count_ = number(trailer + 8, 8);
        top_ = number(trailer + 16, 8);
        table_ = number(trailer + 24, 8);
        if (offsetSize_ < 1 || offsetSize_ > 8 || referenceSize_ < 1 || referenceSize_ > 8) {
            return false;
        }
        if (table_ < headerSize || table_ > trailer) return false;
        return count_ <= (trailer - table_) / offsetSize_;
    }

    // Whether `units` of `width` bytes lie between `at` and the table.
    [[nodiscard]] bool fits(std::size_t at, std::size_t units, std::size_t width) const {
        return at <= table_ && units <= (table_ - at) / width;
    }

    bool addText(std::size_t bytes) {
        text_ += bytes;
        return text_ <= PropertyListLimits::text;
    }

    // Counts one object at `object`, and goes into it when it is a container. A key must be a
    // text without a NUL, at which the library would give up the whole program.
    bool enter(std::size_t object, bool isKey) {
        if (object >= count_ || ++objects_ > PropertyListLimits::objects) return false;
        std::size_t at = number(table_ + object * offsetSize_, offsetSize_);
        if (at < headerSize || at >= table_) return false;
        const unsigned kind = byte(at) >> 4U;
        std::size_t size = byte(at) & 15U;
        ++at;
        if (isKey && kind != 5 && kind != 6) return false;
        switch (kind) {
            case 0x0:
                return size == 8 || size == 9;  // false, true
            case 0x1:
                return size <= 4 && fits(at, std::size_t{1} << size, 1);
            case 0x2:
                return (size == 2 || size == 3) && fits(at, std::size_t{1} << size, 1);
            case 0x3:
                return size == 3 && fits(at, 8, 1);
            case 0x8:
                return fits(at, size + 1, 1);
            default:
                break;
        }
        if (size == 15 && !readSize(at, size)) return false;
        switch (kind) {
            case 0x4:
                return fits(at, size, 1) && addText(size);
            case 0x5:
                return fits(at, size, 1) && addText(size) && !(isKey && hasNul(at, size, 1));
            case 0x6:  // UTF-16, of which a unit makes three bytes at most
                return fits(at, size, 2) && addText(3 * size) && !(isKey && hasNul(at, size, 2));
            case 0xA:
                return push({object, at, size, 0, 0});
            case 0xD:
                return fits(at, size, 2) && push({object, at, 2 * size, size, 0});
            default:
                return false;
        }
    }

    // The size of a larger object follows as an object of its own, an integer.
    bool readSize(std::size_t& at, std::size_t& size) const {
        if (!fits(at, 1, 1) || byte(at) >> 4U != 1) return false;
        const std::size_t width = std::size_t{1} << (byte(at) & 15U);
        ++at;
        if (width > 8 || !fits(at, width, 1)) return false;
        size = number(at, width);
        at += width;
        return true;
    }

    [[nodiscard]] bool hasNul(std::size_t at, std::size_t units, std::size_t width) const {
        for (std::size_t unit = 0; unit < units; ++unit) {
            if (number(at + unit * width, width) == 0) return true;
        }
        return false;
    }

    bool push(const Container& container) {
        if (!fits(container.start, container.references, referenceSize_)) return false;
        if (container.references > PropertyListLimits::objects) return false;
        if (path_.size() == PropertyListLimits::levels || onPath_[container.object]) return false;
        onPath_[container.object] = true;
        path_.push_back(container);
        return true;
    }

    std::string_view bytes_;
    std::size_t offsetSize_ = 0;
    std::size_t referenceSize_ = 0;
    std::size_t count_ = 0;
    std::size_t top_ = 0;
    std::size_t table_ = 0;
    std::size_t objects_ = 0;
    std::size_t text_ = 0;
    std::vector<bool> onPath_;
    std::vector<Container> path_;
};

}  // namespace

bool weighBinaryPropertyList(std::string_view bytes) {
    return BinaryWeight(bytes).isWithinLimits();
}

}  // namespace morvane
