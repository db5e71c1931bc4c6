#pragma once

#include <set>
#include <string>
#include <vector>

#include "support/tree_snapshot.h"
#include "system/test_disk.h"

namespace morvane::test {

// What a scan of the disk finds to sweep: one path that goes, and the files in it.
struct PlannedItem {
    std::string path;
    std::vector<std::string> files;
};

// Where the files of one item are.
enum class Whereabouts { oldPlace, trash, gone, torn };

// A small disk with things to sweep, among others that nothing may touch. Each file holds bytes
// that no other holds, so that it is known wherever it turns up.
class PlannedDisk {
public:
    PlannedDisk();

    TestDisk disk;
    [[nodiscard]] const std::vector<PlannedItem>& items() const { return items_; }

    // Torn: a file is missing while others are not, stands in two places, or is not whole.
    [[nodiscard]] Whereabouts whereabouts(const PlannedItem& item) const;
    // The paths of the items that are there.
    [[nodiscard]] std::set<std::string> itemsAt(Whereabouts place) const;
    // The files that stand where they stood, whole or not.
    [[nodiscard]] std::set<std::string> filesLeft() const;

    // Each item is at its old place or in the Trash as a whole, never neither, never both.
    void expectOldPlaceOrTrash() const;
    // Each file is at its old place, whole, or gone; none is in the Trash.
    void expectOldPlaceOrGone() const;
    // What is no item, no Trash and no store of the settings is as it was, byte for byte.
    void expectRestUntouched() const;

private:
    void plan(const std::string& path, const std::vector<std::string>& files);
    // Folders without their times, which change when an item leaves them.
    [[nodiscard]] TreeSnapshot rest() const;
    [[nodiscard]] std::multiset<std::string> contentsOfTrash() const;

    std::vector<PlannedItem> items_;
    TreeSnapshot rest_;
};

}  // namespace morvane::test
