#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "platform/folder/removal_rules.h"

namespace morvane::folder {

// A folder that has to be there for an item to be put into it, and those above it: what is missing
// is made, and can be taken away again. One thread.
class MadeFolders {
public:
    explicit MadeFolders(RemovalCalls& calls) : calls_(calls) {}

    // Finds how much of the clean path `path` is there, through whatever links lead there. Fails
    // where something else than a folder is in the way.
    [[nodiscard]] std::optional<Failure> find(const DiskRoot& disk,
                                              const std::filesystem::path& path);
    // The canonical path of the whole, after find.
    [[nodiscard]] const std::string& canonicalPath() const { return canonical_; }

    // Makes what is missing; a link that leads nowhere is never made to lead somewhere. What was
    // made before a failure is there still.
    [[nodiscard]] std::optional<Failure> make(const std::filesystem::path& path);
    // The last folder, after make.
    [[nodiscard]] int folder() const { return folder_.get(); }

    // Takes away, from the last one up, what make made and nobody has put anything into.
    void takeBack();

private:
    RemovalCalls& calls_;
    Descriptor folder_;                 // the deepest that is there
    std::vector<std::string> missing_;  // the rest, outermost last
    std::string canonical_;
    // What make made, outermost first, each with the folder it was made in.
    struct Made {
        std::string name;
        FolderIdentity parent;
        bool isEntered = false;
    };
    std::vector<Made> made_;
};

}  // namespace morvane::folder
