#include <array>

#include "mac.h"

namespace morvane::sample {
namespace {

/// What a working copy is built with, which says what folders it fills.
enum class Stack { web, rust, swift, python, android, cpp };

struct Project {
    std::string_view name;
    Stack stack;
    double megabytes;
    double days;
};

constexpr std::array projects{
    Project{"storefront", Stack::web, 44, 0.4},
    Project{"design-tokens", Stack::web, 20, 90},
    Project{"old-blog", Stack::web, 26, 520},
    Project{"tide-engine", Stack::rust, 60, 5},
    Project{"ledgerly-ios", Stack::swift, 30, 6},
    Project{"forecast-notebooks", Stack::python, 40, 33},
    Project{"route-planner", Stack::android, 24, 190},
    Project{"ray-tracer", Stack::cpp, 14, 700},
    Project{"погода", Stack::python, 6, 260},
};

struct Part {
    Stack stack;
    std::string_view path;
    double share;
    int files;  ///< more than one: numbered copies beside each other
};

constexpr std::array parts{
    Part{Stack::web, "node_modules/react-dom/cjs/react-dom.development.js", 0.2, 1},
    Part{Stack::web, "node_modules/typescript/lib/tsserver.js", 0.4, 1},
    Part{Stack::web, "node_modules/lodash/fp/part.js", 0.1, 30},
    Part{Stack::web, "node_modules/@esbuild/darwin-arm64/bin/esbuild", 0.2, 1},
    Part{Stack::web, "dist/assets/index.js", 0.1, 3},
    Part{Stack::web, "src/components/view.tsx", 0.01, 14},
    Part{Stack::rust, "target/debug/deps/libtide.rlib", 0.4, 1},
    Part{Stack::rust, "target/debug/incremental/tide/part.o", 0.5, 30},
    Part{Stack::rust, "src/module.rs", 0.01, 9},
    Part{Stack::swift, "Pods/Realm/core/librealm.a", 0.6, 1},
    Part{Stack::swift, "Pods/Alamofire/Source/file.swift", 0.05, 20},
    Part{Stack::swift, "Carthage/Build/iOS/Charts.framework/Charts", 0.2, 1},
    Part{Stack::swift, "Ledgerly.xcodeproj/project.pbxproj", 0.01, 1},
    Part{Stack::python, "venv/lib/python3.13/site-packages/torch/lib/libtorch.dylib", 0.7, 1},
    Part{Stack::python, "venv/lib/python3.13/site-packages/numpy/core/mod.py", 0.1, 24},
    Part{Stack::python, "__pycache__/model.cpython-313.pyc", 0.01, 4},
    Part{Stack::python, "notebooks/forecast.ipynb", 0.1, 3},
    Part{Stack::android, "app/build/intermediates/dex/classes.dex", 0.5, 4},
    Part{Stack::android, "app/build/outputs/apk/debug/app-debug.apk", 0.4, 1},
    Part{Stack::android, "app/src/main/java/Route.java", 0.01, 8},
    Part{Stack::cpp, "build/CMakeFiles/ray.dir/scene.cpp.o", 0.6, 12},
    Part{Stack::cpp, "vendor/stb/stb_image.h", 0.1, 2},
    Part{Stack::cpp, "src/scene.cpp", 0.01, 10},
};

/// "src/view.tsx" and 3 give "src/view-3.tsx".
std::string numbered(std::string_view path, int number) {
    const std::size_t dot = path.rfind('.');
    const std::string_view stem = path.substr(0, dot);
    const std::string_view ending = dot == std::string_view::npos ? "" : path.substr(dot);
    return std::string(stem) + "-" + std::to_string(number) + std::string(ending);
}

void planRepository(Plan& disk, const std::string& folder, const Project& project) {
    disk.text(folder + ".git/HEAD", "ref: refs/heads/main\n", project.days);
    const std::string pack = disk.random("pack of " + folder).lowerHex(40);
    disk.file(folder + ".git/objects/pack/pack-" + pack + ".pack",
              {.amount = project.megabytes * 0.1}, project.days + 30);
    disk.file(folder + ".git/objects/pack/pack-" + pack + ".idx",
              {.amount = project.megabytes * 0.01}, project.days + 30);
    disk.text(folder + "README.md", "# " + std::string(project.name) + "\n", project.days + 90);
}

}  // namespace

void planProjects(Mac& mac) {
    Plan& disk = mac.disk;
    for (const Project& project : projects) {
        const std::string folder = inHome("Projects/" + std::string(project.name) + "/");
        planRepository(disk, folder, project);
        for (const Part& part : parts) {
            if (part.stack != project.stack) {
                continue;
            }
            for (int number = 0; number < part.files; ++number) {
                disk.file(folder + (part.files == 1 ? std::string(part.path)
                                                    : numbered(part.path, number)),
                          {.amount = project.megabytes * part.share / part.files}, project.days);
            }
        }
    }
    // A package manager's one file under several names, and its links between packages.
    const std::string modules = inHome("Projects/storefront/node_modules/");
    const std::string store = inHome("Library/pnpm/store/v10/files/ff/");
    for (const std::string name : {"a1", "b2", "c3"}) {
        disk.file(store + name, {.amount = 0.5, .atLeast = 0.004}, 11);
        disk.hardLink(modules + ".pnpm/shared@1.0.0/" + name + ".js", store + name);
        disk.hardLink(inHome("Projects/design-tokens/node_modules/shared/" + name + ".js"),
                      store + name);
    }
    disk.link(modules + "shared", ".pnpm/shared@1.0.0");
    disk.link(modules + ".bin/tsserver", "../typescript/lib/tsserver.js");
    // Large ones in folders that hold nothing but what can be made again, and one beside them.
    disk.file(inHome("Projects/forecast-notebooks/venv/lib/big-model.bin"),
              {.amount = 112, .keepsSize = true}, 33);
    disk.file(inHome("Projects/route-planner/app/build/heap.hprof"),
              {.amount = 108, .keepsSize = true}, 190);
    disk.file(inHome("Projects/forecast-notebooks/data/era5.grib"),
              {.amount = 125, .keepsSize = true}, 33);
}

}  // namespace morvane::sample
