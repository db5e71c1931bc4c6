// The inventory of applications against one bare walk of the same files:
//
//   inventory_bench FOLDER [ROUNDS]
//
// Makes a disk of 200 applications with 10 companions each in FOLDER, which must not exist yet,
// takes the inventory as the Uninstaller screen does, in turns with a bare walk (two threads,
// nothing but listing and asking sizes), at least five rounds, and compares the minima. Aim: 1.5.
// The processor time of both is told too, since a busy machine disturbs it less.

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <ctime>
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

// What something cost, in seconds.
struct Cost {
    double wall = 1e9;
    double processor = 1e9;  // of all threads

    void keepLeast(const Cost& other) {
        wall = std::min(wall, other.wall);
        processor = std::min(processor, other.processor);
    }
};

double processorSeconds() {
    timespec time{};
    ::clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) / 1e9;
}

template <class Work>
Cost costOf(Work work) {
    const auto start = std::chrono::steady_clock::now();
    const double processor = processorSeconds();
    work();
    const std::chrono::duration<double> wall = std::chrono::steady_clock::now() - start;
    return {wall.count(), processorSeconds() - processor};
}

Cost takeInventory(folder::FolderPlatform& system, EventLoop& loop, std::size_t& parts) {
    Pool pool;
    const auto state = AppState::create(
        {Runtime{loop, pool}, system.platform(), system.remover(), system.defaults()});
    const Cost took = costOf([&] {
        state->scanApps(true);
        loop.runUntil([&] { return state->isIdle(); });
    });
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
    Cost inventory;
    Cost bare;
    std::size_t parts = 0;
    for (int round = 0; round <= rounds; ++round) {
        const Cost bareTook =
            costOf([&] { static_cast<void>(bench::bareLoop((disk / "root").native())); });
        const Cost took = takeInventory(system, loop, parts);
        if (round == 0) continue;  // warms the caches
        bare.keepLeast(bareTook);
        inventory.keepLeast(took);
    }
    std::printf(
        "inventory of %d applications, %zu parts: %.3f s, one bare walk %.3f s: %.2f of it\n",
        applications, parts, inventory.wall, bare.wall, inventory.wall / bare.wall);
    std::printf("processor time %.3f s and %.3f s: %.2f of it\n", inventory.processor,
                bare.processor, inventory.processor / bare.processor);
    return 0;
}
