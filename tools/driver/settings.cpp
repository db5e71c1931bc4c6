#include "driver/settings.h"

#include <functional>
#include <iterator>
#include <nlohmann/json.hpp>
#include <set>
#include <vector>

#include "driver/arguments.h"
#include "model/path_text.h"

namespace morvane::driver {

namespace {

// Collects the writes while the values are checked, so that all are made or none.
class Writes {
public:
    Writes(AppState& state, Arguments& values) : state_(state), values_(values) {}

    template <class T, class Read>
    void add(Observable<T> AppState::* field, const char* name, Read read) {
        if (!values_.has(name)) return;
        T value = read(name);
        writes_.push_back([this, field, value] { state_.*field = value; });
    }

    void make() const {
        for (const auto& write : writes_) write();
    }

private:
    AppState& state_;
    Arguments& values_;
    std::vector<std::function<void()>> writes_;
};

}  // namespace

std::optional<std::string> writeFields(AppState& state, const nlohmann::json& json) {
    Arguments values(&json, "field");
    Writes writes(state, values);
    const auto boolean = [&](const char* name) { return values.boolean(name); };
    const auto text = [&](const char* name) { return values.text(name); };
    const auto optionalText = [&](const char* name) { return values.optionalText(name); };
    const auto set = [&](const char* name) {
        std::vector<std::string> texts = values.texts(name);
        return std::set<std::string>(std::make_move_iterator(texts.begin()),
                                     std::make_move_iterator(texts.end()));
    };
    writes.add(&AppState::selection, "selection",
               [&](const char* name) { return values.optionalOneOf<SidebarItem>(name); });
    writes.add(&AppState::schedule, "schedule",
               [&](const char* name) { return values.oneOf<ScanSchedule>(name); });
    writes.add(&AppState::remindWhenReady, "remindWhenReady", boolean);
    writes.add(&AppState::showInMenuBar, "showInMenuBar", boolean);
    writes.add(&AppState::alwaysUseTrash, "alwaysUseTrash", boolean);
    writes.add(&AppState::onboardingStep, "onboardingStep",
               [&](const char* name) { return values.oneOf<OnboardingStep>(name); });
    writes.add(&AppState::sweepSelection, "sweepSelection", set);
    writes.add(&AppState::devSelection, "devSelection", set);
    writes.add(&AppState::fileMinMB, "fileMinMB",
               [&](const char* name) { return values.number(name); });
    writes.add(&AppState::fileMinMonths, "fileMinMonths",
               [&](const char* name) { return values.integer(name); });
    writes.add(&AppState::fileKind, "fileKind",
               [&](const char* name) { return values.optionalOneOf<FileKind>(name); });
    writes.add(&AppState::fileSelection, "fileSelection", set);
    writes.add(&AppState::focusedFileID, "focusedFileID", optionalText);
    writes.add(&AppState::quickLookURL, "quickLookURL",
               [&](const char* name) -> std::optional<std::filesystem::path> {
                   if (!values.optionalText(name)) return std::nullopt;
                   return values.path(name);
               });
    writes.add(&AppState::excludedAppParts, "excludedAppParts", set);
    writes.add(&AppState::selectedAppID, "selectedAppID", optionalText);
    writes.add(&AppState::appQuery, "appQuery", text);
    writes.add(&AppState::appSort, "appSort",
               [&](const char* name) { return values.oneOf<AppSort>(name); });
    writes.add(&AppState::storagePath, "storagePath",
               [&](const char* name) { return values.texts(name); });
    writes.add(&AppState::storageHover, "storageHover", optionalText);
    values.refuseUnknown();
    if (values.error()) return values.error();
    writes.make();
    return std::nullopt;
}

}  // namespace morvane::driver
