// The inventory of applications against one bare walk of the same files:
//
//   inventory_bench FOLDER [ROUNDS]
//
// Makes a disk of 200 applications with 10 companions each in FOLDER, which must not exist yet,
// takes the inventory as the Uninstaller screen does, in turns with a bare walk (two threads,
// nothing but listing and asking sizes), at least five rounds, and compares the minima. Aim: 1.5.

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>
#include <variant>

#include "bare_loop.h"
#include "core/app_state.h"
#include "platform/folder/folder_platform.h"
#include "tasks/event_loop.h"

namespace {

using namespace morvane;  // NOLINT(google-build-using-namespace)
namespace fs = std::filesystem;

constexpr int applications = 200;

void writeFile(const fs::path& path, const std::string& text) {
    fs::create_directories(path.parent_path());
    std::ofstream(path) << text;
}

// Some forty files in eight folders, as a small bundle or a companion folder has.
void fill(const fs::path& folder, int files) {
    for (int index = 0; index < files; ++index) {
        writeFile(folder / ("part " + std::to_string(index % 8)) / std::to_string(index),
                  std::string(static_cast<std::size_t>(200 + index * 37), 'x'));
    }
}

std::string propertyList(const std::string& id) {
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<plist version=\"1.0\"><dict>"
           "<key>CFBundleIdentifier</key><string>" +
           id + "</string><key>CFBundleShortVersionString</key><string>1.0</string></dict></plist>";
}

void makeApplication(const fs::path& root, int number) {
    const std::string name = "Tool" + std::to_string(number);
    const std::string id = "com.maker" + std::to_string(number) + "." + name;
    const fs::path bundle = root / "Applications" / (name + ".app");
    writeFile(bundle / "Contents/Info.plist", propertyList(id));
    fill(bundle / "Contents/Resources", 160);
    const fs::path library = root / "Users/sam/Library";
    writeFile(library / "Preferences" / (id + ".plist"), propertyList(id));
    writeFile(library / "HTTPStorages" / (id + ".binarycookies"), "cookies");
    writeFile(library / "LaunchAgents" / (id + ".helper.plist"), propertyList(id));
    for (const char* place : {"Application Support/", "Caches/", "HTTPStorages/", "WebKit/",
                              "Containers/", "Application Scripts/"}) {
        fill(library / (place + id), 40);
    }
    fill(library / "Logs" / name, 40);
}

double secondsSince(std::chrono::steady_clock::time_point start) {
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

double takeInventory(folder::FolderPlatform& system, EventLoop& loop, std::size_t& parts) {
    Pool pool;
    const auto state = AppState::create(
        {Runtime{loop, pool}, system.platform(), system.remover(), system.defaults()});
    const auto start = std::chrono::steady_clock::now();
    state->scanApps(true);
    loop.runUntil([&] { return state->isIdle(); });
    const double took = secondsSince(start);
    parts = 0;
    for (const InstalledApp& app : *state->apps) parts += app.parts.size();
    return took;
}

}  // namespace

int main(int count, char** words) {
    if (count < 2 || count > 3) {
        std::fputs("usage: inventory_bench FOLDER [ROUNDS]\n", stderr);
        return 2;
    }
    const fs::path disk = words[1];
    const int rounds = std::max(5, count == 3 ? std::atoi(words[2]) : 0);
    if (fs::exists(fs::symlink_status(disk))) {
        std::fprintf(stderr, "inventory_bench: %s exists\n", disk.c_str());
        return 2;
    }
    for (int number = 0; number < applications; ++number) makeApplication(disk / "root", number);
    writeFile(disk / "host.json", R"({"fullDiskAccess": "granted"})");

    auto opened = folder::FolderPlatform::open(disk);
    if (const auto* error = std::get_if<std::string>(&opened)) {
        std::fprintf(stderr, "inventory_bench: %s\n", error->c_str());
        return 2;
    }
    folder::FolderPlatform& system = *std::get<std::unique_ptr<folder::FolderPlatform>>(opened);
    EventLoop loop;
    system.start(loop);
    double inventory = 1e9;
    double bare = 1e9;
    std::size_t parts = 0;
    for (int round = 0; round <= rounds; ++round) {
        const auto start = std::chrono::steady_clock::now();
        static_cast<void>(bench::bareLoop((disk / "root").native()));
        const double bareTook = secondsSince(start);
        const double took = takeInventory(system, loop, parts);
        if (round == 0) continue;  // warms the caches
        bare = std::min(bare, bareTook);
        inventory = std::min(inventory, took);
    }
    std::printf(
        "inventory of %d applications, %zu parts: %.3f s, one bare walk %.3f s: %.2f of it\n",
        applications, parts, inventory, bare, inventory / bare);
    return 0;
}
