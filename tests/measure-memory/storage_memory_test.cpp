// How much a storage scan holds at once, counted where memory is handed out.

#include <algorithm>
#include <atomic>
#include <cstdlib>
#include <gtest/gtest.h>
#include <malloc.h>
#include <new>
#include <string>

#include "measure/storage_scanner.h"
#include "platform/forwarding_file_system.h"
#include "support/fake_system.h"

namespace {

std::atomic<std::int64_t> liveBytes{0};
std::atomic<std::int64_t> peakBytes{0};

void* allocate(std::size_t size) {
    void* memory = std::malloc(size == 0 ? 1 : size);
    if (memory == nullptr) std::abort();
    const std::int64_t live = liveBytes += static_cast<std::int64_t>(malloc_usable_size(memory));
    std::int64_t peak = peakBytes.load();
    while (peak < live && !peakBytes.compare_exchange_weak(peak, live)) {
    }
    return memory;
}

void release(void* memory) {
    if (memory == nullptr) return;
    liveBytes -= static_cast<std::int64_t>(malloc_usable_size(memory));
    std::free(memory);
}

}  // namespace

void* operator new(std::size_t size) {
    return allocate(size);
}
void* operator new[](std::size_t size) {
    return allocate(size);
}
void operator delete(void* memory) noexcept {
    release(memory);
}
void operator delete[](void* memory) noexcept {
    release(memory);
}
void operator delete(void* memory, std::size_t) noexcept {
    release(memory);
}
void operator delete[](void* memory, std::size_t) noexcept {
    release(memory);
}

namespace morvane::StorageScanner {
namespace {

constexpr std::int64_t MB = 1'000'000;

// One folder that is made up while it is walked, so that the test itself holds none of it.
class EndlessFolder final : public ForwardingFileSystem {
public:
    EndlessFolder() : ForwardingFileSystem(nothingElse_) {}

    std::int64_t entryCount = 500'000;
    bool holdsFolders = false;

    bool walk(const std::filesystem::path&, const WalkOptions&, FolderVisit& root,
              const StopToken&) const override {
        const Here here;
        for (std::int64_t start = 0; start < entryCount; start += 500) {
            std::vector<std::string> names;
            std::vector<WalkedEntry> batch;
            for (std::int64_t index = start; index < start + 500; ++index) {
                names.push_back(std::string(200, 'n') + std::to_string(index));
            }
            for (const std::string& name : names) {
                // Ever larger, so that each is among the largest when it comes.
                const std::int64_t bytes = MB * (start + 1 + (&name - names.data()));
                batch.push_back({.name = name,
                                 .kind = holdsFolders ? EntryKind::folder : EntryKind::file,
                                 .hasAttributes = !holdsFolders,
                                 .allocatedBytes = holdsFolders ? 0 : bytes});
            }
            root.entries(here, batch);
            if (!holdsFolders) continue;
            for (const WalkedEntry& entry : batch) {
                std::unique_ptr<FolderVisit> below = root.enter(here, entry);
                const WalkedEntry inside[] = {{.name = "file",
                                               .kind = EntryKind::file,
                                               .hasAttributes = true,
                                               .allocatedBytes = 10 * MB + start}};
                below->entries(here, inside);
                root.ended(std::move(below));
            }
        }
        return true;
    }

private:
    fakes::FakeFiles nothingElse_;

    class Here final : public WalkedFolder {
    public:
        [[nodiscard]] std::filesystem::path path() const override { return "/Users"; }
        [[nodiscard]] FolderIdentity identity() const override { return {}; }
    };
};

std::int64_t peakOfScan(const EndlessFolder& files, StorageNode& found) {
    fakes::FakeSystem mac;
    const Platform platform{
        files, mac.processes, mac.workspace, mac.metadata, mac.notifications, mac.volume, {},
        {},    "/Users/sam"};
    const std::int64_t before = liveBytes.load();
    peakBytes = before;
    found = scanRoot(platform, "/Users", {}, {});
    return peakBytes.load() - before;
}

TEST(StorageMemory, HoldsTheLargestFewOfAFolderOf500000Files) {
    EndlessFolder files;
    StorageNode found;
    const std::int64_t peak = peakOfScan(files, found);
    // 24 nodes, and the batch of 500 names that the disk hands over.
    EXPECT_LT(peak, 400'000);
    EXPECT_EQ(found.bytes, MB * (500'000LL * 500'001LL / 2));
    // No single file is a hundredth of that.
    EXPECT_TRUE(found.children.empty());
}

TEST(StorageMemory, HoldsTheLargestFewOfAFolderOf500000Subfolders) {
    EndlessFolder files;
    files.holdsFolders = true;
    StorageNode found;
    const std::int64_t peak = peakOfScan(files, found);
    EXPECT_LT(peak, 400'000);
    EXPECT_EQ(found.bytes, 500'000LL * 10 * MB + 500LL * 500LL * (1000LL * 999LL / 2));
}

TEST(StorageMemory, HoldsNoMoreOfAFolderFiveTimesAsLarge) {
    EndlessFolder files;
    StorageNode found;
    files.entryCount = 100'000;
    const std::int64_t peak = peakOfScan(files, found);
    files.entryCount = 500'000;
    EXPECT_LE(peakOfScan(files, found), peak + 10'000);
}

}  // namespace
}  // namespace morvane::StorageScanner
