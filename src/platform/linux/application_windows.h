#pragma once

#include <functional>
#include <utility>

#include "platform/folder/desktop.h"

namespace morvane::linuxdesktop {

// Brings the program's windows to the front and asks for the keyboard. The window manager may
// refuse. Hidden windows stay hidden.
void bringWindowsToFront();

// This program's windows. Who makes the folder chooser sets it; until then a panel counts as
// dismissed.
class ApplicationWindows final : public folder::OwnWindows {
public:
    using Chooser = std::function<void(const Workspace::FolderPanel& panel, Chosen chosen)>;

    void setChooser(Chooser chooser) { chooser_ = std::move(chooser); }

    [[nodiscard]] bool isActive() const override;
    void chooseFolders(const Workspace::FolderPanel& panel, Chosen chosen) override;

private:
    Chooser chooser_;
};

}  // namespace morvane::linuxdesktop
