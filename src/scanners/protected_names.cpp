#include "scanners/protected_names.h"

#include <algorithm>
#include <array>

namespace morvane::CleanupScanner {

namespace {

constexpr std::array<std::string_view, 31> protectedCacheNames{
    // Browsers.
    "Google", "BraveSoftware", "Firefox", "Mozilla", "Microsoft Edge", "com.operasoftware.Opera",
    "company.thebrowser.Browser", "com.vivaldi.Vivaldi",
    // Package managers and build tools.
    "Homebrew", "CocoaPods", "pip", "Yarn", "pnpm", "go-build", "org.swift.swiftpm",
    "ms-playwright", "node-gyp", "deno", "electron", "electron-builder",
    // The system.
    "CloudKit", "FamilyCircle", "familycircled", "GeoServices", "PassKit", "Animoji", "ARFileCache",
    "Metadata", "SiriTTS", "SpeechModels", "TemporaryItems"};

}  // namespace

bool isProtectedCacheName(std::string_view name) {
    return std::find(protectedCacheNames.begin(), protectedCacheNames.end(), name) !=
           protectedCacheNames.end();
}

}  // namespace morvane::CleanupScanner
