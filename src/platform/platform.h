#pragma once

#include <filesystem>

#include "model/region.h"
#include "platform/file_system.h"
#include "platform/processes.h"
#include "platform/system.h"

namespace morvane {

// Everything Morvane may read or ask of a system. What removes is handed over apart (remover.h), so
// that a component that must not delete cannot name it. The pieces outlive whoever holds this.
struct Platform {
    const FileSystem& files;
    const Processes& processes;
    Workspace& workspace;
    const MetadataStore& metadata;
    NotificationCenter& notifications;
    const Volume& volume;
    BundleInfo bundle;
    Region region;
    std::filesystem::path home;
    const BundleResources& resources = emptyBundle;

    [[nodiscard]] std::filesystem::path library() const { return home / "Library"; }
};

}  // namespace morvane
