#pragma once

#include <map>
#include <optional>
#include <string>

#include "platform/folder/removal_rules.h"

namespace morvane::folder {

// ".Trash" in the home folder, for the length of one call of a removal. Opened, and made where it
// is missing, at the first item that needs it. One thread.
class TrashFolder {
public:
    TrashFolder(const RemovalRules& rules, const Host& host);

    // Moves the item into the Trash by one rename under a name that is free there and gives back
    // that name; on failure the item stands where it stood. `path` is told in a failure; one of the
    // Trash itself (it is a file, a link, somebody else's) is told of the Trash.
    Result<std::string> take(const Place& item, const std::filesystem::path& path);

private:
    [[nodiscard]] std::optional<Failure> open();
    [[nodiscard]] Result<ItemFacts> openExisting(int home);
    [[nodiscard]] std::optional<Failure> check(const ItemFacts& trash, const ItemFacts& home) const;
    [[nodiscard]] bool isTaken(const std::string& name);
    [[nodiscard]] int freeNumber(const std::string& name, int from);

    const RemovalRules& rules_;
    std::filesystem::path home_;
    bool isOpened_ = false;
    std::optional<Failure> problem_;  // why there is no Trash
    Descriptor folder_;
    FolderIdentity identity_;
    // The next number to try for names met before in this call, so that a thousand of one name take
    // a thousand renames.
    std::map<std::string, int> nextNumbers_;
};

}  // namespace morvane::folder
