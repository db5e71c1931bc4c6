#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "platform/failure.h"
#include "platform/folder/descriptor.h"

namespace morvane::folder {

// Where an item lies: the open folder that holds it and its name there. `canonicalFolder` is the
// path of that folder in the disk's own terms with no link in it ("/" for the top). The top itself
// is the item "." of itself.
struct Place {
    Descriptor folder;  // O_PATH | O_DIRECTORY
    std::string name;
    std::string canonicalFolder;

    [[nodiscard]] std::string canonicalPath() const;
};

// The folder that stands for "/". Paths are resolved as if it were the top: neither an absolute
// link nor ".." leads out of it, and after 32 links a path counts as not there. Paths of any length
// work, since the long ones and those with links are resolved component by component. Any thread.
class DiskRoot {
public:
    // `folder` is a folder of this machine; a relative one is made absolute.
    static Result<DiskRoot> open(const std::filesystem::path& folder);

    // The item that `path` names, a link at its end not followed. The item need not exist; the
    // folder it lies in must.
    [[nodiscard]] Result<Place> locate(const std::filesystem::path& path) const;
    // The item that `path` leads to, links at its end followed; it exists.
    [[nodiscard]] Result<Place> locateTarget(const std::filesystem::path& path) const;
    // Opens what `path` leads to with `flags` (O_CLOEXEC is added), links at its end followed.
    [[nodiscard]] Result<Descriptor> openTarget(const std::filesystem::path& path, int flags) const;

    // The same, but creates each folder on the way that is missing, the last component too.
    [[nodiscard]] Result<Descriptor> makeFolders(const std::filesystem::path& path) const;

    // Where a path with no link in it lies on this machine, for what is handed to other programs.
    [[nodiscard]] std::filesystem::path onThisMachine(const std::string& canonicalPath) const;

    [[nodiscard]] int descriptor() const { return root_.get(); }

private:
    struct Walk;
    DiskRoot(Descriptor root, std::filesystem::path folder)
        : root_(std::move(root)), folder_(std::move(folder)) {}
    // Nothing where links have to be followed.
    [[nodiscard]] std::optional<Result<Place>> resolveStraight(const std::filesystem::path& path,
                                                               bool followLast) const;
    [[nodiscard]] Result<Place> resolve(const std::filesystem::path& path, bool followLast,
                                        bool create) const;

    Descriptor root_;
    std::filesystem::path folder_;
};

}  // namespace morvane::folder
