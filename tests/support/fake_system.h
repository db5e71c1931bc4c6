#pragma once

#include <filesystem>
#include <string_view>

#include "model/instant.h"
#include "platform/platform.h"
#include "support/fake_desktop.h"
#include "support/fake_files.h"
#include "support/fake_processes.h"

namespace morvane::fakes {

// A Mac with nothing on it but the home folder of Sam, who reads British English in Berlin, at noon
// UTC on 21 November 2026.
struct FakeSystem {
    FakeFiles files;
    FakeProcesses processes;
    FakeWorkspace workspace;
    FakeMetadata metadata;
    FakeNotifications notifications;
    FakeVolume volume;
    Instant now = std::chrono::sys_days{std::chrono::year{2026} / 11 / 21} + std::chrono::hours(12);
    Platform platform{files,
                      processes,
                      workspace,
                      metadata,
                      notifications,
                      volume,
                      {"app.morvane.Morvane", "0.1.0", "1", "© 2026"},
                      {"en_GB", "Europe/Berlin"},
                      "/Users/sam"};

    FakeSystem() { files.addFolder(platform.library()); }

    [[nodiscard]] std::filesystem::path home(std::string_view below) const {
        return platform.home / below;
    }
    [[nodiscard]] std::filesystem::path library(std::string_view below) const {
        return platform.library() / below;
    }
};

}  // namespace morvane::fakes
