#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/file_system.h"

namespace morvane::test {

// An item of a disk that lives in memory, put together as a tree of braces.
struct Item {
    std::string name;
    EntryKind kind = EntryKind::file;
    std::int64_t bytes = 0;
    std::vector<Item> children = {};
    std::optional<Instant> modified = {};
    std::optional<Instant> created = {};
    bool isExecutable = false;
    bool isPackage = false;
    bool isVolume = false;
    bool isAlias = false;
    bool isHidden = false;
    bool isUnreadable = false;
};

[[nodiscard]] Item file(std::string name, std::int64_t bytes);
[[nodiscard]] Item folder(std::string name, std::vector<Item> children);
[[nodiscard]] Item package(std::string name, std::vector<Item> children);
[[nodiscard]] Item link(std::string name, std::int64_t bytes = 0);
// The same item, changed.
[[nodiscard]] Item with(Item item, const std::function<void(Item&)>& change);

// Reads a disk in memory, on the calling thread, listing items in the order they were given. A
// leading dot hides an item. The identity of a folder is {1, the length of its path}.
class MemoryDisk final : public FileSystem {
public:
    explicit MemoryDisk(std::vector<Item> items = {}) : top_(folder("/", std::move(items))) {}

    // Entries handed over at once.
    std::size_t batchSize = 3;
    // Called before each folder is listed, with its path.
    std::function<void(const std::string&)> beforeListing;

    [[nodiscard]] Result<Attributes> attributes(const std::filesystem::path& path) const override;
    [[nodiscard]] Presence presence(const std::filesystem::path& path) const override;
    [[nodiscard]] bool exists(const std::filesystem::path& path) const override;
    [[nodiscard]] bool isExecutableFile(const std::filesystem::path& path) const override;
    [[nodiscard]] Probe probe(const std::filesystem::path& path) const override;
    [[nodiscard]] std::string displayName(const std::filesystem::path& path) const override;
    [[nodiscard]] Result<std::vector<ListedEntry>> list(const std::filesystem::path& path,
                                                        Hidden hidden) const override;
    [[nodiscard]] Result<std::string> readFile(const std::filesystem::path& path,
                                               std::int64_t limit) const override;
    bool walk(const std::filesystem::path& path, const WalkOptions& options, FolderVisit& root,
              const StopToken& token) const override;
    [[nodiscard]] TreeSize treeSize(const std::filesystem::path& path, bool withDates,
                                    const StopToken& token) const override;

private:
    [[nodiscard]] const Item* find(const std::filesystem::path& path) const;
    void walkItem(const Item& item, const std::string& path, const WalkOptions& options,
                  FolderVisit& visit, const StopToken& token) const;

    Item top_;
};

}  // namespace morvane::test
