#include "scanners/package_caches.h"

#include <array>
#include <string>
#include <string_view>
#include <utility>

#include "scanners/dev_item.h"
#include "scanners/frame.h"

namespace morvane::CleanupScanner {

namespace {

struct PackageCache {
    std::string_view name;
    std::string_view path;  // under the home folder
};

// pnpm has two rows: its store and its cache of what it asked the registry.
constexpr std::array packageCaches{
    PackageCache{"npm", ".npm/_cacache"},
    PackageCache{"Yarn", "Library/Caches/Yarn"},
    PackageCache{"pnpm", "Library/pnpm/store"},
    PackageCache{"pnpm", "Library/Caches/pnpm"},
    PackageCache{"Bun", ".bun/install/cache"},
    PackageCache{"Homebrew", "Library/Caches/Homebrew"},
    PackageCache{"CocoaPods", "Library/Caches/CocoaPods"},
    PackageCache{"pip", "Library/Caches/pip"},
    PackageCache{"Swift Package Manager", "Library/Caches/org.swift.swiftpm"},
    PackageCache{"Go build cache", "Library/Caches/go-build"},
    PackageCache{"Gradle", ".gradle/caches"},
    PackageCache{"Cargo", ".cargo/registry/cache"},
    PackageCache{"Maven", ".m2/repository"},
    PackageCache{"Playwright browsers", "Library/Caches/ms-playwright"},
};

}  // namespace

std::vector<CleanupItem> scanPackageCaches(const ScanContext& scan) {
    std::vector<CleanupItem> items;
    for (const PackageCache& cache : packageCaches) {
        if (scan.token.stop_requested()) break;
        const std::filesystem::path url = scan.platform.home / cache.path;
        if (!scan.platform.files.exists(url)) continue;
        const Measure found = measure(scan, url);
        if (found.bytes < 1) continue;
        items.push_back(devItem(scan, "pkg:" + std::string(cache.path), std::string(cache.name),
                                url, found, Safety::regenerates, usedWords(scan, found)));
    }
    return sortedBySize(std::move(items));
}

}  // namespace morvane::CleanupScanner
