#include <array>

#include "mac.h"

namespace morvane::sample {
namespace {

struct Cache {
    std::string_view folder;  ///< under the home folder
    std::string_view file;
    double megabytes;
    double days;
    int files;
};

constexpr std::array caches{
    Cache{".npm/_cacache", "content-v2/sha512/ab/", 44, 3, 80},
    Cache{"Library/Caches/Yarn", "v6/npm-left-", 30, 140, 40},
    Cache{"Library/pnpm/store", "v10/files/0a/", 26, 11, 60},
    Cache{"Library/Caches/pnpm", "metadata-v1.3/registry/", 6, 11, 12},
    Cache{".bun/install/cache", "react@19.", 14, 70, 20},
    Cache{"Library/Caches/Homebrew", "downloads/bottle-", 70, 12, 24},
    Cache{"Library/Caches/CocoaPods", "Pods/Release/Alamofire/", 18, 300, 16},
    Cache{"Library/Caches/pip", "http-v2/4/c/", 20, 33, 30},
    Cache{"Library/Caches/org.swift.swiftpm", "repositories/swift-syntax/pack-", 26, 9, 12},
    Cache{"Library/Caches/go-build", "7f/", 34, 22, 90},
    Cache{".gradle/caches", "modules-2/files-2.1/androidx/", 30, 190, 30},
    Cache{".cargo/registry/cache", "index.crates.io/serde-1.", 16, 5, 40},
    Cache{".m2/repository", "org/springframework/spring-core/", 18, 410, 24},
    Cache{"Library/Caches/ms-playwright", "chromium-1194/chrome-mac/part-", 50, 44, 8},
};

/// Folders of tool chains beside their caches.
struct Tool {
    std::string_view path;
    double megabytes;
    double days;
};

constexpr std::array toolchains{
    Tool{".rustup/toolchains/stable-aarch64-apple-darwin/lib/librustc_driver.dylib", 44, 30},
    Tool{".cargo/bin/rg", 5, 90},
    Tool{".android/avd/Pixel_9.avd/userdata-qemu.img.qcow2", 40, 200},
    Tool{"Library/Android/sdk/platforms/android-36/android.jar", 22, 200},
    Tool{"Library/Android/sdk/system-images/android-36/arm64-v8a/system.img", 60, 200},
    Tool{".pnpm-store/v3/files/00/index.json", 2, 600},
    Tool{".yarn/berry/cache/lodash.zip", 4, 230},
    Tool{".cocoapods/repos/trunk/all_pods.txt", 3, 300},
    Tool{".pub-cache/hosted/pub.dev/http-1.5.0/lib.dart", 3, 340},
    Tool{"go/pkg/mod/cache/download/golang.org/x/tools.zip", 16, 22},
    Tool{"go/bin/gopls", 9, 60},
};

}  // namespace

void planPackageCaches(Mac& mac) {
    Plan& disk = mac.disk;
    for (const Cache& cache : caches) {
        const std::string stem = inHome(cache.folder) + "/" + std::string(cache.file);
        for (int number = 0; number < cache.files; ++number) {
            const std::string name =
                stem + disk.random("package " + stem + std::to_string(number)).lowerHex(18);
            disk.file(name, {.amount = cache.megabytes / cache.files, .atLeast = 0.001},
                      cache.days + number * 2);
        }
    }
    for (const Tool& tool : toolchains) {
        disk.file(inHome(tool.path), {.amount = tool.megabytes}, tool.days);
    }
}

}  // namespace morvane::sample
