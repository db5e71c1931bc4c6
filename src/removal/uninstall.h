#pragma once

#include <optional>
#include <set>
#include <string>
#include <vector>

#include "model/apps.h"
#include "platform/failure.h"
#include "platform/processes.h"
#include "removal/discard.h"

namespace morvane {

// Whether one of `parts` is an application bundle: a path with exactly the extension "app".
[[nodiscard]] bool holdsBundle(const std::vector<AppPart>& parts);

// The parts of `app` in their order, without those whose path is in `excluded`.
[[nodiscard]] std::vector<AppPart> selectedParts(const InstalledApp& app,
                                                 const std::set<std::string>& excluded);

// Takes the launch agent out of the user's session; that it was not loaded is no obstacle. Waits.
void unloadAgent(const Processes& processes, const std::filesystem::path& propertyList);

// The line of the history for what went: the app, or only its leftovers, and the size.
[[nodiscard]] std::string uninstallSummary(const InstalledApp& app,
                                           const std::vector<AppPart>& gone);

// What the user is told of a removal of `parts` of which `gone` went.
[[nodiscard]] UninstallResult uninstallResultOf(const InstalledApp& app,
                                                const std::vector<AppPart>& parts,
                                                const std::vector<AppPart>& gone, bool wholeApp,
                                                Disposal disposal,
                                                const std::optional<Failure>& error);

// "Moved" or "Deleted", as the sentence about a partly failed removal begins.
[[nodiscard]] std::string removalVerb(Disposal disposal);
// Why nothing moved: "Couldn’t move {what} to the Trash. {reason}", or the same for deleting.
[[nodiscard]] std::string nothingMovedWords(const std::string& what, Disposal disposal,
                                            const std::optional<Failure>& error);

}  // namespace morvane
