#pragma once

#include <string>

#include "platform/failure.h"
#include "platform/file_system.h"
#include "platform/folder/host_marks.h"

namespace morvane::folder {

// The attributes of the item `name` of an open folder. `above` is that folder, `marked` what the
// host says of the item, null for nothing. A failure has no path.
[[nodiscard]] Result<Attributes> readAttributes(int folder, const std::string& name,
                                                const FolderIdentity& above,
                                                const MarkedItem* marked);

// What is known of an item by its name and the host alone.
[[nodiscard]] Attributes attributesByName(const std::string& name, EntryKind kind,
                                          const FolderIdentity& above, const MarkedItem* marked);

}  // namespace morvane::folder
