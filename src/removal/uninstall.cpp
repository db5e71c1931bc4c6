#include "removal/uninstall.h"

#include <algorithm>
#include <chrono>

#include "model/path_text.h"
#include "model/words.h"

namespace morvane {

namespace {

double megabytesOf(const std::vector<AppPart>& parts) {
    double sum = 0;
    for (const AppPart& part : parts) sum += static_cast<double>(part.bytes) / 1e6;
    return sum;
}

}  // namespace

bool holdsBundle(const std::vector<AppPart>& parts) {
    return std::any_of(parts.begin(), parts.end(),
                       [](const AppPart& part) { return part.url.extension() == ".app"; });
}

std::vector<AppPart> selectedParts(const InstalledApp& app, const std::set<std::string>& excluded) {
    std::vector<AppPart> selected;
    for (const AppPart& part : app.parts) {
        if (!excluded.contains(pathText(part.url))) selected.push_back(part);
    }
    return selected;
}

void unloadAgent(const Processes& processes, const std::filesystem::path& propertyList) {
    // The tool answers at once; the limit only keeps a broken one from holding the program up.
    static_cast<void>(processes.run(
        "/bin/launchctl",
        {"bootout", "gui/" + std::to_string(processes.userID()), propertyList.native()},
        std::chrono::seconds(30), StopToken()));
}

std::string uninstallSummary(const InstalledApp& app, const std::vector<AppPart>& gone) {
    const std::string what =
        holdsBundle(gone) ? "Uninstalled " + app.name : app.name + " leftovers";
    return what + " · " + sizeText(megabytesOf(gone));
}

std::string removalVerb(Disposal disposal) {
    return disposal == Disposal::trash ? "Moved" : "Deleted";
}

std::string nothingMovedWords(const std::string& what, Disposal disposal,
                              const std::optional<Failure>& error) {
    const std::string reason = error ? describe(*error) : "Nothing was moved.";
    if (disposal == Disposal::trash) {
        return "Couldn’t move " + what + " to the Trash. " + reason;
    }
    return "Couldn’t delete " + what + ". " + reason;
}

UninstallResult uninstallResultOf(const InstalledApp& app, const std::vector<AppPart>& parts,
                                  const std::vector<AppPart>& gone, bool wholeApp,
                                  Disposal disposal, const std::optional<Failure>& error) {
    if (gone.size() == parts.size()) {
        return UninstallRemoved{app.name, megabytesOf(gone), wholeApp};
    }
    if (gone.empty()) return RemovalFailed{nothingMovedWords(app.name, disposal, error)};
    return RemovalFailed{removalVerb(disposal) + " " + std::to_string(gone.size()) + " of " +
                         std::to_string(parts.size()) + " items. The rest couldn’t be removed."};
}

}  // namespace morvane
