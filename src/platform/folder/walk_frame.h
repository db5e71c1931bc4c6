#pragma once

#include "model/cleanup.h"
#include "platform/folder/descriptor.h"
#include "platform/folder/host_marks.h"
#include "platform/folder/name_list.h"

namespace morvane::folder {

class WalkNode;

// A folder that a walk is in, held by the one thread that reads it.
struct WalkFrame {
    Descriptor folder;                  // none while it is closed to spare descriptors
    FolderIdentity identity;            // known at the latest when it is closed
    NameList below;                     // subfolders still to be gone into
    bool allRead = false;               // nothing more to be listed
    bool isCutShort = false;            // its listing ended in an error
    bool isLarge = false;               // too much unread to be closed early
    bool isTop = false;                 // the folder that the walk began in
    WalkNode* node = nullptr;           // where each folder has a visit
    const MarkedItem* marks = nullptr;  // null where nothing at or below it is marked
};

}  // namespace morvane::folder
