#pragma once

#include <functional>
#include <string>
#include <vector>

#include "support/fake_system.h"

// Disks written down as trees of braces, for tests about what lies in what.
namespace morvane::test {

struct Item {
    std::string name;
    Attributes attributes;
    std::vector<Item> children = {};
    bool isUnreadable = false;
};

[[nodiscard]] Item file(std::string name, std::int64_t bytes,
                        std::optional<Instant> modified = std::nullopt);
[[nodiscard]] Item folder(std::string name, std::vector<Item> children);
// A folder whose name makes it a package.
[[nodiscard]] Item package(std::string name, std::vector<Item> children);
// A link to a folder outside of what is walked.
[[nodiscard]] Item link(std::string name, std::int64_t bytes = 0);
[[nodiscard]] Item unreadable(Item item);
// The same item with other attributes.
[[nodiscard]] Item with(Item item, const std::function<void(Attributes&)>& change);

// A Mac that has these items at the top of its disk, and nothing else.
struct TreeMac : fakes::FakeSystem {
    explicit TreeMac(const std::vector<Item>& items = {});
};

}  // namespace morvane::test
