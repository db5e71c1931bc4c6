#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

namespace morvane::folder {

// Names that wait, end to end in one block: a folder with hundreds of thousands of subfolders is
// held in little more than the bytes of their names. Taken in the order they were added.
class NameList {
public:
    struct Name {
        std::string_view name;   // ends in a zero byte
        std::uint8_t flags = 0;  // what the owner noted of it
    };

    [[nodiscard]] bool isEmpty() const { return at_ >= bytes_.size(); }

    void add(std::string_view name, std::uint8_t flags) {
        if (isEmpty()) clear();
        bytes_.push_back(static_cast<char>(flags));
        bytes_.insert(bytes_.end(), name.begin(), name.end());
        bytes_.push_back('\0');
    }

    // The name stays valid until the next one is added. Only when not empty.
    [[nodiscard]] Name take() {
        Name taken{bytes_.data() + at_ + 1, static_cast<std::uint8_t>(bytes_[at_])};
        at_ += taken.name.size() + 2;
        return taken;
    }

    // Whether exactly one name waits.
    [[nodiscard]] bool hasOne() const {
        return !isEmpty() &&
               at_ + std::string_view(bytes_.data() + at_ + 1).size() + 2 == bytes_.size();
    }

    void clear() {
        bytes_.clear();
        at_ = 0;
    }

private:
    std::vector<char> bytes_;
    std::size_t at_ = 0;
};

}  // namespace morvane::folder
