#include "measure/large_files.h"

#include <algorithm>
#include <memory>
#include <span>
#include <string_view>
#include <utility>

#include "measure/file_kinds.h"
#include "measure/large_file_finds.h"
#include "measure/path_marks.h"
#include "measure/tree_sum.h"
#include "model/path_text.h"

namespace morvane {

namespace {

class LargeFilesPart : public FolderVisit {
public:
    // Called once, after everything below has ended.
    virtual void finish() {}
};

// A document bundle, which counts as one file of the size of all it holds.
class BundleVisit final : public LargeFilesPart {
public:
    BundleVisit(LargeFileFinds& finds, LargeFileSighting bundle)
        : finds_(finds), bundle_(std::move(bundle)) {}

    void entries(const WalkedFolder&, std::span<const WalkedEntry> batch) override {
        sum_.add(batch);
    }
    std::unique_ptr<FolderVisit> enter(const WalkedFolder&, const WalkedEntry&) override {
        return sum_.enterFolder();
    }
    void ended(std::unique_ptr<FolderVisit>) override {}

    void finish() override {
        bundle_.bytes = sum_.bytes();
        bundle_.modified = sum_.newest();
        finds_.add(std::move(bundle_));
    }

private:
    LargeFileFinds& finds_;
    LargeFileSighting bundle_;
    TreeSum sum_;
};

class FolderOfFilesVisit final : public LargeFilesPart {
public:
    FolderOfFilesVisit(LargeFileFinds& finds, const FileSystem& files, PathMarks ignored)
        : finds_(finds), files_(files), ignored_(std::move(ignored)) {}

    void entries(const WalkedFolder& folder, std::span<const WalkedEntry> batch) override {
        for (const WalkedEntry& entry : batch) {
            if (entry.kind != EntryKind::file || entry.allocatedBytes < largeFileFloor) continue;
            if (entry.isHidden || entry.isAlias || isIgnored(entry.name) ||
                isProgramPart(entry.name, entry.isExecutable)) {
                continue;
            }
            finds_.add({.url = folder.path() / entry.name,
                        .folder = folder.identity(),
                        .bytes = entry.allocatedBytes,
                        .modified = entry.modified,
                        .created = entry.created});
        }
    }

    std::unique_ptr<FolderVisit> enter(const WalkedFolder& folder,
                                       const WalkedEntry& entry) override {
        if (entry.isHidden || isIgnored(entry.name)) return nullptr;
        if (entry.isPackage) return bundleVisit(folder, entry.name);
        if (isNeverEntered(entry.name)) return nullptr;
        return std::make_unique<FolderOfFilesVisit>(
            finds_, files_, ignored_.isEmpty() ? PathMarks() : ignored_.below(entry.name));
    }

    void ended(std::unique_ptr<FolderVisit> child) override {
        static_cast<LargeFilesPart&>(*child).finish();
    }

private:
    [[nodiscard]] bool isIgnored(std::string_view name) const {
        return !ignored_.isEmpty() && ignored_.contains(name);
    }

    [[nodiscard]] std::unique_ptr<FolderVisit> bundleVisit(const WalkedFolder& folder,
                                                           std::string_view name) const {
        if (!documentBundleKind(name)) return nullptr;
        LargeFileSighting bundle{.url = folder.path() / name, .folder = folder.identity()};
        // A walk shows the dates of files alone; document bundles are few enough to be asked.
        const Result<Attributes> found = files_.attributes(bundle.url);
        if (found.ok()) bundle.created = found->created;
        return std::make_unique<BundleVisit>(finds_, std::move(bundle));
    }

    LargeFileFinds& finds_;
    const FileSystem& files_;
    PathMarks ignored_;
};

// A root that is no folder to walk: a plain file, or a package.
void considerRoot(const FileSystem& files, const std::filesystem::path& root,
                  const Attributes& found, LargeFileFinds& finds, const StopToken& token) {
    const std::string name = root.filename().native();
    LargeFileSighting sighting{.url = root,
                               .folder = found.folder,
                               .bytes = found.allocatedBytes,
                               .modified = found.modified,
                               .created = found.created};
    if (found.kind == EntryKind::folder) {
        if (!documentBundleKind(name)) return;
        const TreeSize size = files.treeSize(root, true, token);
        sighting.bytes = size.bytes;
        sighting.modified = size.newest;
    } else if (found.kind != EntryKind::file || found.isAlias ||
               isProgramPart(name, found.isExecutable)) {
        return;
    }
    finds.add(std::move(sighting));
}

}  // namespace

std::vector<std::filesystem::path> largeFileRoots(const Platform& platform) {
    std::vector<std::filesystem::path> roots;
    Result<std::vector<ListedEntry>> listed = platform.files.list(platform.home, Hidden::skipped);
    if (!listed.ok()) return roots;
    for (ListedEntry& entry : *listed) {
        const std::filesystem::path name = entry.path.filename();
        if (name != "Library" && name != "Applications") roots.push_back(std::move(entry.path));
    }
    return roots;
}

std::vector<LargeFile> scanLargeFiles(const Platform& platform, const std::filesystem::path& root,
                                      const std::vector<std::filesystem::path>& ignored,
                                      Instant now, const StopToken& token) {
    const auto holdsRoot = [&root](const std::filesystem::path& folder) {
        return isInside(root, folder);
    };
    if (std::ranges::any_of(ignored, holdsRoot)) return {};
    const Result<Attributes> found = platform.files.attributes(root);
    if (!found.ok()) return {};

    LargeFileFinds finds(platform, now);
    if (found->kind != EntryKind::folder || found->isPackage) {
        considerRoot(platform.files, root, *found, finds, token);
        return finds.take();
    }
    const MarkedPaths marked(root, ignored);
    FolderOfFilesVisit visit(finds, platform.files, marked.marks());
    platform.files.walk(root, {.dates = true, .created = true, .executable = true}, visit, token);
    return finds.take();
}

std::vector<LargeFile> filteredFiles(const std::vector<LargeFile>& files, double minMB,
                                     std::int64_t minMonths, std::optional<FileKind> kind,
                                     Instant now) {
    std::vector<LargeFile> kept;
    for (const LargeFile& file : files) {
        if (static_cast<double>(file.bytes) / 1e6 < minMB) continue;
        if (ageInMonths(file, now) < minMonths) continue;
        if (kind && file.kind != *kind) continue;
        kept.push_back(file);
    }
    std::ranges::stable_sort(kept, std::ranges::greater{}, &LargeFile::bytes);
    return kept;
}

}  // namespace morvane
