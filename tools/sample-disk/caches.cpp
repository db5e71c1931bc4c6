#include <array>

#include "mac.h"

namespace morvane::sample {
namespace {

struct Row {
    std::string_view path;
    double megabytes;
    double days;
};

/// Both places of one browser are there on purpose, and so are browsers that are not installed.
constexpr std::array browserCaches{
    Row{"Caches/com.apple.Safari/WebKitCache/Version 17/Blobs/blob", 60, 0.1},
    Row{"Caches/com.apple.Safari/Cache.db", 12, 0.1},
    Row{"Caches/Google/Chrome/Default/Cache/Cache_Data/data_3", 90, 2},
    Row{"Caches/Google/Chrome/Default/Code Cache/js/index", 20, 2},
    Row{"Caches/BraveSoftware/Brave-Browser/Default/Cache/Cache_Data/data_1", 26, 140},
    Row{"Caches/Firefox/Profiles/k3v9.default-release/cache2/entries/0A1B", 44, 6},
    Row{"Caches/Mozilla/Firefox/updates/0/update.mar", 18, 50},
    Row{"Caches/Microsoft Edge/Default/Cache/Cache_Data/data_2", 15, 260},
    Row{"Caches/com.operasoftware.Opera/Default/Cache/f_00001a", 9, 420},
    Row{"Caches/company.thebrowser.Browser/User Data/Default/Cache/data_0", 22, 60},
    Row{"Caches/com.vivaldi.Vivaldi/Default/Cache/Cache_Data/data_1", 7, 500},
};

/// Caches of small helpers and frameworks, of stores that rebuild nothing, and of the system.
constexpr std::array otherCaches{
    Row{"Caches/net.whetstone.FileHero/thumbnails.data", 16, 20},
    Row{"Caches/net.whetstone.FileHero.ShipIt/FileHero.zip", 11, 33},
    Row{"Caches/SentryCrash/Postman/Data/report.json", 0.4, 75},
    Row{"Caches/typescript/5.9/node_modules/types-registry/index.json", 14, 25},
    Row{"Caches/GameKit/Data/achievements.db", 2, 300},
    Row{"Caches/app.morvane.Morvane/icons.db", 1, 0.2},
    Row{"Caches/app.morvane.Morvane.ShipIt/update.zip", 5, 9},
    Row{"Caches/com.apple.AppleMediaServices/cache.db", 4, 1},
    Row{"Caches/com.apple.dt.instruments/instruments.db", 6, 70},
    Row{"Caches/CloudKit/com.apple.bird/asset.data", 8, 1},
    Row{"Caches/GeoServices/ActiveTileGroup.pbd", 3, 2},
    Row{"Caches/FamilyCircle/family.db", 0.1, 2},
    Row{"Caches/PassKit/pass.db", 0.2, 30},
    Row{"Caches/SiriTTS/voice.data", 10, 90},
    Row{"Caches/node-gyp/22.11.0/include/node/node.h", 5, 110},
    Row{"Caches/electron/electron-v33.2.0-darwin-arm64.zip", 30, 180},
    Row{"Caches/electron-builder/dmg-builder/tools.zip", 6, 180},
    Row{"Caches/deno/npm/registry.json", 4, 210},
};

constexpr std::array logs{
    Row{"Logs/DiagnosticReports/Slack-crash.ips", 0.3, 45},
    Row{"Logs/DiagnosticReports/Xcode-hang.hang", 2.5, 130},
    Row{"Logs/DiagnosticReports/Spotify-crash.ips", 0.4, 8},
    Row{"Logs/DiagnosticReports/Retired/iTerm-crash.ips", 0.5, 260},
    Row{"Logs/CoreSimulator/CoreSimulator.log", 3, 0.5},
    Row{"Logs/CoreSimulator/CoreSimulator.log.1", 4, 64},
    Row{"Logs/CoreSimulator/0D1F/system.log", 2, 90},
    Row{"Logs/Homebrew/openssl@3/01.configure", 0.2, 75},
    Row{"Logs/Homebrew/openssl@3/02.make", 1.2, 75},
    Row{"Logs/Homebrew/node/post_install.01.node", 0.1, 12},
    Row{"Logs/fsck_hfs.log", 0.1, 520},
    Row{"Logs/Adobe Installer/2024/March/install.log", 1.4, 600},
    Row{"Logs/Adobe Installer/2024/March/.hidden.log", 0.3, 600},
    Row{"Logs/Tidewatch/tide.log", 0.8, 0.1},
    Row{"Logs/Tidewatch/tide-old.log", 3, 31},
    Row{"Logs/Tidewatch/tide-young.log", 1, 26},
    Row{"Logs/npm/_logs/debug-0.log", 0.2, 40},
};

constexpr std::array attachments{
    Row{"2B81-4F/Rechnung März 2026.pdf", 0.6, 40},
    Row{"7C10-91/invitation.pages", 1.1, 220},
    Row{"9A3D-02/请柬.jpg", 2.4, 330},
    Row{"9A3D-02/holiday.heic", 3.2, 330},
    Row{"E4F7-55/contract (signed).pdf", 1.8, 15},
    Row{"F00D-77/slides.key", 7, 90},
};

}  // namespace

void planCaches(Mac& mac) {
    Plan& disk = mac.disk;
    for (const Row& row : browserCaches) {
        disk.file(inLibrary(row.path), {.amount = row.megabytes, .atLeast = 0.01}, row.days);
    }
    for (const Row& row : otherCaches) {
        disk.file(inLibrary(row.path), {.amount = row.megabytes, .atLeast = 0.004}, row.days);
    }
    // Many small ones, as a picture loader keeps them; among them one that shows as hidden only.
    for (int number = 0; number < 240; ++number) {
        const std::string name = disk.random("thumbnail " + std::to_string(number)).lowerHex(40);
        disk.file(inLibrary("Caches/com.spotify.client/Storage/" + name.substr(0, 2) + "/" + name),
                  {.amount = 0.12}, number % 60 + 0.5);
    }
    disk.file(inLibrary("Caches/com.onlyhidden.Vault/.vault"), {.amount = 1, .atLeast = 0.01}, 80);
    disk.folderOfAge(inLibrary("Caches/com.emptied.Reader"), 200);
    for (const Row& row : logs) {
        disk.file(inLibrary(row.path), {.amount = row.megabytes, .atLeast = 0.004}, row.days);
    }
    disk.text(inLibrary("Logs/empty-old.log"), "", 90);
    disk.text(inLibrary("Logs/empty-young.log"), "", 2);
    disk.folderOfAge(inLibrary("Logs/PhotosUpgrade"), 480);
    disk.folderOfAge(inLibrary("Logs/Music/2025"), 300);
    disk.link(inLibrary("Logs/latest.log"), "CoreSimulator/CoreSimulator.log.1", 90);
    for (const Row& row : attachments) {
        disk.file(inLibrary("Containers/com.apple.mail/Data/Library/Mail Downloads/") +
                      std::string(row.path),
                  {.amount = row.megabytes, .atLeast = 0.01}, row.days);
    }
}

}  // namespace morvane::sample
