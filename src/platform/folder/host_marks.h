#pragma once

#include <cstdint>
#include <deque>
#include <map>
#include <string>
#include <string_view>

#include "platform/folder/disk_root.h"
#include "platform/folder/host.h"

namespace morvane::folder {

// What the lists of host.json say of one item.
enum class Mark : std::uint8_t { hidden = 1, package = 2, alias = 4, mount = 8, unreadable = 16 };

// An item that carries marks, or a folder above one.
struct MarkedItem {
    std::uint8_t marks = 0;
    std::map<std::string, MarkedItem*, std::less<>> below;

    [[nodiscard]] bool has(Mark mark) const {
        return (marks & static_cast<std::uint8_t>(mark)) != 0;
    }
    // Null where neither the item of that name nor anything below it is marked.
    [[nodiscard]] const MarkedItem* find(std::string_view name) const {
        const auto found = below.find(name);
        return found == below.end() ? nullptr : found->second;
    }
};

// The marks in force, by path with no link in it: made for one operation, so that the links on the
// disk are those of the moment. Empty lists cost nothing. One thread writes, many may read.
class HostMarks {
public:
    HostMarks() = default;
    HostMarks(const HostMarks&) = delete;
    HostMarks& operator=(const HostMarks&) = delete;

    void addLists(const DiskRoot& disk, const Host& host);
    void add(std::string_view canonicalPath, Mark mark);

    [[nodiscard]] bool isEmpty() const { return items_.empty(); }
    // Null where nothing at or below the path is marked.
    [[nodiscard]] const MarkedItem* find(std::string_view canonicalPath) const;
    [[nodiscard]] bool has(std::string_view canonicalPath, Mark mark) const;
    // Whether the path, or a folder above it, refuses to be opened.
    [[nodiscard]] bool isUnreadable(std::string_view canonicalPath) const;

private:
    std::deque<MarkedItem> items_;  // the first stands for "/"
};

}  // namespace morvane::folder
