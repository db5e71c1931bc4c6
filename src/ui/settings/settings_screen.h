#pragma once

#include <map>
#include <set>
#include <string>
#include <vector>

#include "ui/screens/screen.h"
#include "ui/settings/settings_content.h"

namespace morvane::screens {

// What the settings show of the disk itself.
struct SettingsFacts {
    std::set<std::string> ignoredFoldersThere;
    std::map<std::string, HistoryState> historyStates;  // by entry id

    bool operator==(const SettingsFacts&) const = default;
};

// Looks at the disk for the ignored folders and at the Trash for what was swept. Any thread.
[[nodiscard]] SettingsFacts lookAtDisk(const Platform& platform,
                                       const std::vector<std::string>& ignoredFolders,
                                       const std::vector<HistoryEntry>& history);

// The settings, the ignore list, the history of sweeps, and the switches of the updater.
class SettingsScreen final : public ScreenOf<SettingsContent> {
public:
    explicit SettingsScreen(ScreenNeeds needs);

    [[nodiscard]] std::string_view name() const override { return "settings"; }
    // As the disk is now, looked at afresh.
    [[nodiscard]] SettingsContent content() const override;
    // As the disk was when the facts were gathered. A folder that they do not know counts as not
    // there; of a sweep that they do not know nothing is said.
    [[nodiscard]] SettingsContent content(const SettingsFacts& facts) const;
    // Brings the permissions up to date.
    void appear() override;

private:
    void restore(const std::string& id);

    ScreenNeeds needs_;
};

}  // namespace morvane::screens
