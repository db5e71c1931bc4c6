#include "measure/storage_scanner.h"

#include <array>
#include <memory>
#include <span>
#include <string_view>
#include <utility>

#include "measure/folder_fold.h"
#include "measure/path_marks.h"
#include "measure/tree_sum.h"
#include "model/path_text.h"

namespace morvane::StorageScanner {

namespace {

constexpr std::array rootPaths{"/Users", "/Applications", "/Library", "/opt"};

constexpr std::array protectedPaths{"Desktop",
                                    "Documents",
                                    "Downloads",
                                    "Pictures",
                                    "Movies",
                                    "Music",
                                    "Library/Containers",
                                    "Library/Group Containers",
                                    "Library/Mobile Documents",
                                    "Library/CloudStorage",
                                    "Library/Mail",
                                    "Library/Messages",
                                    "Library/Safari",
                                    "Library/Calendars",
                                    "Library/Reminders",
                                    "Library/HomeKit",
                                    "Library/Biome",
                                    "Library/Application Support/AddressBook",
                                    "Library/Application Support/CallHistoryDB",
                                    "Library/Application Support/com.apple.TCC"};

// A path of a Mac has at most 1,024 bytes, and so no more than this many components. Folders
// further down count in full but are not drawn, because the paths of a chain of nodes grow with the
// square of its length.
constexpr int deepestKept = 512;

// The visit of an entry that becomes a node of its own. While the walk lasts a node knows only its
// last path component, in `url`; a name that differs from it is set already.
class NodeVisit : public FolderVisit {
public:
    [[nodiscard]] virtual std::int64_t bytes() const = 0;
    [[nodiscard]] virtual StorageNode takeNode() = 0;
};

class BundleVisit final : public NodeVisit {
public:
    explicit BundleVisit(std::string_view name) : name_(name) {}

    void entries(const WalkedFolder&, std::span<const WalkedEntry> batch) override {
        sum_.add(batch);
    }
    std::unique_ptr<FolderVisit> enter(const WalkedFolder&, const WalkedEntry&) override {
        return sum_.enterFolder();
    }
    void ended(std::unique_ptr<FolderVisit>) override {}

    std::int64_t bytes() const override { return sum_.bytes(); }
    StorageNode takeNode() override {
        std::filesystem::path url(std::move(name_));
        const std::filesystem::path shown = url.extension() == ".app" ? url.stem() : url;
        return {.name = nameText(shown),
                .url = std::move(url),
                .kind = StorageNode::Kind::file,
                .bytes = bytes()};
    }

private:
    std::string name_;
    TreeSum sum_;
};

class StorageVisit final : public NodeVisit {
public:
    StorageVisit(std::string_view name, PathMarks skipped, int level)
        : name_(name), skipped_(std::move(skipped)), level_(level) {}

    void entries(const WalkedFolder&, std::span<const WalkedEntry> batch) override {
        for (const WalkedEntry& entry : batch) {
            if (classify(entry) != Entry::item || isSkipped(entry.name)) continue;
            add(entry.allocatedBytes, [&entry]() -> StorageNode {
                return {.name = {},
                        .url = std::filesystem::path(entry.name),
                        .kind = StorageNode::Kind::file,
                        .bytes = entry.allocatedBytes};
            });
        }
    }

    std::unique_ptr<FolderVisit> enter(const WalkedFolder&, const WalkedEntry& entry) override {
        if (isSkipped(entry.name)) return nullptr;
        switch (classify(entry)) {
            case Entry::folder:
                return std::make_unique<StorageVisit>(
                    entry.name, skipped_.isEmpty() ? PathMarks() : skipped_.below(entry.name),
                    level_ + 1);
            case Entry::bundle:
                return std::make_unique<BundleVisit>(entry.name);
            case Entry::skipped:
            case Entry::item:
                break;
        }
        return nullptr;
    }

    void ended(std::unique_ptr<FolderVisit> child) override {
        auto& part = static_cast<NodeVisit&>(*child);
        add(part.bytes(), [&part] { return part.takeNode(); });
    }

    std::int64_t bytes() const override { return fold_.total(); }
    StorageNode takeNode() override {
        StorageNode node{.name = {},
                         .url = std::filesystem::path(std::move(name_)),
                         .kind = StorageNode::Kind::folder,
                         .bytes = fold_.total()};
        node.children = fold_.takeKept();
        return node;
    }

private:
    [[nodiscard]] bool isSkipped(std::string_view name) const {
        return !skipped_.isEmpty() && skipped_.contains(name);
    }

    template <class Make>
    void add(std::int64_t bytes, Make&& make) {
        if (level_ >= deepestKept) {
            fold_.addUnseen(bytes);
        } else {
            fold_.add(bytes, std::forward<Make>(make));
        }
    }

    std::string name_;
    PathMarks skipped_;
    FolderFold fold_;
    int level_;
};

// Gives the nodes below `folder`, a folder's own path, their paths and names.
void placeBelow(const std::filesystem::path& folder, std::vector<StorageNode>& children) {
    for (StorageNode& child : children) {
        if (!child.url) continue;
        if (child.name.empty()) child.name = nameText(*child.url);
        child.url = folder / *child.url;
        placeBelow(*child.url, child.children);
    }
}

}  // namespace

Entry classify(const WalkedEntry& entry) {
    if (entry.kind == EntryKind::link || entry.isVolume) return Entry::skipped;
    if (entry.kind != EntryKind::folder) return Entry::item;
    return entry.isPackage ? Entry::bundle : Entry::folder;
}

std::vector<std::filesystem::path> roots(const Platform& platform) {
    std::vector<std::filesystem::path> found;
    for (const char* path : rootPaths) {
        if (platform.files.exists(path)) found.emplace_back(path);
    }
    return found;
}

std::set<std::string> protectedFolders(const std::filesystem::path& home) {
    std::set<std::string> folders;
    for (const char* path : protectedPaths) folders.insert(pathText(standardised(home / path)));
    return folders;
}

StorageNode scanRoot(const Platform& platform, const std::filesystem::path& url,
                     const std::set<std::string>& skipped, const StopToken& token) {
    std::vector<std::filesystem::path> skippedPaths;
    skippedPaths.reserve(skipped.size());
    for (const std::string& text : skipped) skippedPaths.push_back(pathFromText(text));
    const MarkedPaths marked(url, skippedPaths);

    StorageVisit visit(url.filename().native(), marked.marks(), 0);
    // The rest (pipes, sockets, devices) counts by its own blocks too, few as they are.
    platform.files.walk(url, WalkOptions{.links = true}, visit, token);

    StorageNode node = visit.takeNode();
    node.name = nameText(url.filename());
    node.url = url;
    placeBelow(url, node.children);
    return node;
}

}  // namespace morvane::StorageScanner
