#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <sys/types.h>
#include <unordered_set>
#include <vector>

#include "moment.h"
#include "prng.h"
#include "property_list.h"

namespace morvane::sample {

enum class EntryKind { folder, file, link, hardLink };

/// One thing on the disk, before it is written.
struct Entry {
    std::string path;  ///< in the disk's own terms, "/Users/sam/a.txt", bytes as they are
    EntryKind kind = EntryKind::folder;
    std::string
        content;  ///< first bytes of a file, target of a link, the other name of a hard link
    std::int64_t nominal = 0;  ///< bytes of a file on a disk of nominal size; 0: its content alone
    std::int64_t floor = 0;    ///< bytes below which fitting never shrinks the file
    bool staysLarge = false;   ///< stays a large file as long as the disk has room for some
    bool keepsSize = false;    ///< does not shrink on a disk that has room for all large files
    std::int64_t bytes = 0;    ///< length of the file, settled by fitSizes
    Moment modified = 0;
    bool hasOwnTime =
        false;  ///< a folder whose time was asked for; others take their newest child's
    mode_t mode = 0;
};

/// How many megabytes (1e6) a file has on a disk of nominal size. The seed varies it by 15 percent.
struct Megabytes {
    double amount = 0;
    double atLeast = 0;       ///< not varied
    bool staysLarge = false;  ///< as in Entry
    bool keepsSize = false;   ///< as in Entry
};

enum class ListForm { xml, binary };

/// What is to lie on the disk. Adding a path makes the folders above it; a path that is there
/// already keeps what came first. Ages are in days before the moment, and the seed adds up to a
/// tenth; negative ones lie in the future.
class Plan {
public:
    Plan(std::uint64_t seed, Moment now);

    void folder(const std::string& path, mode_t mode = 0755);
    void folderOfAge(const std::string& path, double days);

    /// A file of zeros behind the few bytes that files of its extension begin with.
    void file(const std::string& path, Megabytes size, double days);

    /// A file that is exactly `content`.
    void text(const std::string& path, std::string content, double days, mode_t mode = 0644);
    void list(const std::string& path, const PropertyList& value, ListForm form, double days);

    void link(const std::string& path, std::string target, double days = 200);
    void hardLink(const std::string& path, std::string existing);

    [[nodiscard]] Prng random(std::string_view label) const { return {seed_, label}; }
    [[nodiscard]] Moment now() const { return now_; }

    /// The time of the entry at `path`: what file() and the others set for these days.
    [[nodiscard]] Moment ago(std::string_view path, double days) const;

    [[nodiscard]] const std::vector<Entry>& entries() const { return entries_; }
    [[nodiscard]] std::vector<Entry>& entries() { return entries_; }

    /// Gives each folder without a time of its own that of the newest entry in it.
    void settleFolderTimes();

private:
    Entry* add(const std::string& path, EntryKind kind);

    std::uint64_t seed_;
    Moment now_;
    std::vector<Entry> entries_;
    std::unordered_set<std::string> known_;
};

}  // namespace morvane::sample
