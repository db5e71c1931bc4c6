#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>
#include <string_view>

namespace morvane::folder {

// An entry as the system lists it. `name` ends in a zero byte and stands in the listing's buffer;
// `type` is one of DT_REG, DT_DIR, …, DT_UNKNOWN.
struct RawEntry {
    std::string_view name;
    unsigned char type = 0;
};

// Reads folders through one buffer of 32 KiB, a bufferful at a time and in the file system's order.
// One thread.
class RawListing {
public:
    RawListing();

    // Fills the buffer with the next entries of an open folder. False at its end and where it could
    // not be read; errno is 0 at the end.
    [[nodiscard]] bool read(int folder);

    // The next entry of the buffer, "." and ".." left out. False when the buffer is used up.
    [[nodiscard]] bool next(RawEntry& entry) {
        while (at_ < filled_) {
            const std::byte* record = buffer_.get() + at_;
            std::uint16_t length = 0;
            std::memcpy(&length, record + lengthAt, sizeof length);
            std::memcpy(&after_, record + afterAt, sizeof after_);
            at_ += length;
            const char* name = reinterpret_cast<const char*>(record) + nameAt;
            if (name[0] == '.' && (name[1] == '\0' || (name[1] == '.' && name[2] == '\0'))) {
                continue;
            }
            entry.name = name;
            entry.type = static_cast<unsigned char>(record[typeAt]);
            return true;
        }
        return false;
    }

    // Whether the used-up buffer was the folder's last, so that the system need not be asked for
    // an empty one. False where that is not known.
    [[nodiscard]] bool wasLast() const;

    // Bytes that the last read listed.
    [[nodiscard]] std::size_t size() const { return filled_; }

private:
    // The record of getdents64: inode, position after the entry, record length, type, name.
    static constexpr std::size_t afterAt = 8;
    static constexpr std::size_t lengthAt = 16;
    static constexpr std::size_t typeAt = 18;
    static constexpr std::size_t nameAt = 19;

    std::unique_ptr<std::byte[]> buffer_;
    std::size_t filled_ = 0;
    std::size_t at_ = 0;
    std::int64_t after_ = 0;
};

}  // namespace morvane::folder
