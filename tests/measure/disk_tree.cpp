#include "measure/disk_tree.h"

#include <gtest/gtest.h>
#include <utility>

#include "platform/package_extensions.h"

namespace morvane::test {

namespace {

void put(fakes::FakeFiles& files, const std::filesystem::path& path, const Item& item) {
    switch (item.attributes.kind) {
        case EntryKind::file:
            files.addFile(path, item.attributes.allocatedBytes, item.attributes.modified);
            break;
        case EntryKind::folder:
            files.addFolder(path);
            break;
        case EntryKind::link:
            files.addLink(path, "/elsewhere", item.attributes.allocatedBytes);
            break;
        case EntryKind::other:
            files.addOther(path);
            break;
    }
    files.change(path, [&item](Attributes& attributes) {
        attributes.allocatedBytes = item.attributes.allocatedBytes;
        attributes.created = item.attributes.created;
        attributes.isExecutable = item.attributes.isExecutable;
        attributes.isVolume = item.attributes.isVolume;
        attributes.isAlias = item.attributes.isAlias;
        attributes.isHidden = attributes.isHidden || item.attributes.isHidden;
    });
    for (const Item& child : item.children) put(files, path / child.name, child);
    if (item.isUnreadable) files.refuseReading(path);
}

}  // namespace

Item file(std::string name, std::int64_t bytes, std::optional<Instant> modified) {
    Item item{.name = std::move(name), .attributes = {.kind = EntryKind::file}};
    item.attributes.allocatedBytes = bytes;
    item.attributes.modified = modified;
    return item;
}

Item folder(std::string name, std::vector<Item> children) {
    return {.name = std::move(name),
            .attributes = {.kind = EntryKind::folder},
            .children = std::move(children)};
}

Item package(std::string name, std::vector<Item> children) {
    EXPECT_TRUE(isPackageName(name)) << name;
    return folder(std::move(name), std::move(children));
}

Item link(std::string name, std::int64_t bytes) {
    Item item = file(std::move(name), bytes);
    item.attributes.kind = EntryKind::link;
    return item;
}

Item unreadable(Item item) {
    item.isUnreadable = true;
    return item;
}

Item with(Item item, const std::function<void(Attributes&)>& change) {
    change(item.attributes);
    return item;
}

TreeMac::TreeMac(const std::vector<Item>& items) {
    files.remove("/Users");
    files.addFolder("/elsewhere/huge");
    files.addFile("/elsewhere/huge/a", 90'000'000'000);
    for (const Item& item : items) put(files, "/" + item.name, item);
}

}  // namespace morvane::test
