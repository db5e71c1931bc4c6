#pragma once

#include <string>
#include <utility>

#include "platform/formats/property_list.h"

namespace morvane::CleanupScanner {

using PlistDictionary = PropertyList::Dictionary;

// The bytes of a property list file that holds `values`.
[[nodiscard]] inline std::string plistOf(PlistDictionary values) {
    return writeBinaryPropertyList(PropertyList{std::move(values)});
}

[[nodiscard]] inline PropertyList text(std::string value) {
    return PropertyList{std::move(value)};
}

// What a broken or hostile file may hold in place of a property list.
inline const std::string brokenPlists[] = {
    "",
    "bplist00",
    "bplist00\xff\xff\xff\xff",
    "<?xml version=\"1.0\"?><plist><dict><key>CFBundleIdentifier</key>",
    "<?xml version=\"1.0\"?><plist><array><string>a</string></array></plist>",
    "<?xml version=\"1.0\"?><plist><string>a</string></plist>",
    std::string(1000, '\0'),
    "not a property list\n",
};

}  // namespace morvane::CleanupScanner
