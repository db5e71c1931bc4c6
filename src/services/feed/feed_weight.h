#pragma once

#include <string_view>

namespace morvane {

// Whether a document may be handed to the XML reader: the reader compares every attribute of a tag
// with every other, so that one tag of a megabyte keeps it busy for minutes. No tag may pass 4 KiB;
// comments and CDATA may be of any length. A document that ends inside one of them is light.
[[nodiscard]] bool isLightXML(std::string_view document);

}  // namespace morvane
