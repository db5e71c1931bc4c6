#include "platform/formats/property_list_weight.h"

namespace morvane {

std::optional<PropertyListForm> weighPropertyList(std::string_view bytes) {
    if (bytes.size() > PropertyListLimits::bytes) return std::nullopt;
    if (bytes.starts_with("bplist")) {
        if (!weighBinaryPropertyList(bytes)) return std::nullopt;
        return PropertyListForm::binary;
    }
    if (!weighXMLPropertyList(bytes)) return std::nullopt;
    return PropertyListForm::xml;
}

}  // namespace morvane
