#include "trees.h"

#include <cstdio>
#include <filesystem>
#include <fstream>

#include "walk/make_tree.h"

namespace morvane::bench {

namespace fs = std::filesystem;

std::string diskWithTrees(const std::string& folder, int trees) {
    const fs::path disk = fs::path(folder) / ("storage-disk-" + std::to_string(trees));
    if (fs::exists(disk)) return disk;
    std::printf("making %d files in %s\n", trees * 400'000, disk.c_str());
    std::fflush(stdout);

    // Under its own name only once it is whole.
    const fs::path unfinished = disk.native() + ".unfinished";
    fs::create_directories(unfinished / "root/opt");
    fs::create_directories(unfinished / "root/Users/sam");
    for (int tree = 0; tree < trees; ++tree) {
        if (!makeTree(unfinished / "root/opt" / ("tree-" + std::to_string(tree)))) return {};
    }
    std::ofstream(unfinished / "host.json") << R"({"home": "/Users/sam"})";
    fs::rename(unfinished, disk);
    return disk;
}

}  // namespace morvane::bench
