#pragma once

#include <memory>
#include <optional>
#include <plist/plist.h>
#include <string>
#include <string_view>
#include <type_traits>

namespace morvane {

struct FreeNode {
    void operator()(plist_t node) const { plist_free(node); }
};
// Owns a node of the library that has no parent.
using OwnedNode = std::unique_ptr<std::remove_pointer_t<plist_t>, FreeNode>;

// The library's own calls for dates count seconds in 32 bits and cut microseconds off, and those
// for integers do not tell a negative number from one beyond 2^63. The binary form of a single
// object keeps all of it, so these values cross over in that form.
//
// The bytes of `node`, which is neither dictionary nor array, as they stand in a binary list.
[[nodiscard]] std::string objectBytes(plist_t node);
// The node that such bytes stand for; null where they stand for none.
[[nodiscard]] OwnedNode nodeFromObjectBytes(std::string_view object);

}  // namespace morvane
