#pragma once

#include <memory>
#include <plist/plist.h>
#include <string>
#include <type_traits>

namespace morvane {

struct FreeNode {
    void operator()(plist_t node) const { plist_free(node); }
};
// Owns a node of the library that has no parent.
using OwnedNode = std::unique_ptr<std::remove_pointer_t<plist_t>, FreeNode>;

// The bytes of `node`, which is neither dictionary nor array, as they stand in a binary list. The
// library's own calls for dates count seconds in 32 bits and cut microseconds off, and those for
// integers do not tell a negative number from one beyond 2^63; these bytes keep all of it.
[[nodiscard]] std::string objectBytes(plist_t node);

}  // namespace morvane
