#pragma once

#include <optional>
#include <set>
#include <string>
#include <variant>
#include <vector>

#include "core/store_test.h"
#include "screens/told_json.h"
#include "services/updater.h"
#include "ui/screens/screens.h"

namespace morvane::screens {

using Names = std::set<std::string>;

class FakeUpdates final : public UpdateService {
public:
    bool canCheck = true;
    bool checks = false;
    bool downloads = false;
    std::vector<std::string> calls;
    Changes changes;

    void start() override {}
    void checkForUpdates() override { calls.emplace_back("check"); }
    [[nodiscard]] bool canCheckForUpdates() const override { return canCheck; }
    [[nodiscard]] Subscription observeCanCheck(std::function<void()> changed) override {
        return changes.observe(std::move(changed));
    }
    [[nodiscard]] bool automaticallyChecks() const override { return checks; }
    void setAutomaticallyChecks(bool value) override {
        calls.emplace_back(value ? "checks on" : "checks off");
    }
    [[nodiscard]] bool automaticallyDownloads() const override { return downloads; }
    void setAutomaticallyDownloads(bool value) override {
        calls.emplace_back(value ? "downloads on" : "downloads off");
    }
};

class FakeWindows final : public Windows {
public:
    std::vector<std::string> opened;
    void open(std::string_view identifier) override { opened.emplace_back(identifier); }
};

// Every screen over a store on a Mac in memory. The access is granted, onboarding behind, and the
// disk measured: 500 GB, 100 GB free.
class ScreenTest : public StoreTest {
protected:
    using Value = decltype(PressRequest::value);

    FakeUpdates updates;
    FakeWindows windows;
    std::optional<Updater> updater;
    std::optional<Screens> screens;

    void SetUp() override {
        grantAccess();
        defaults.stored["hasOnboarded"] = true;
        startScreens();
        state->disk = DiskUsage{.totalBytes = 500'000'000'000, .freeBytes = 100'000'000'000};
        loop.runReady();
        defaults.writes.clear();
    }
    void startScreens() {
        start();
        updater.emplace(updates);
        screens.emplace(ScreenNeeds{*state, *updater, windows});
    }

    [[nodiscard]] Json screen(std::string_view name) { return told(*screens->named(name)); }

    // Uses a control; a refusal fails the test.
    void press(std::string_view name, std::string control, std::optional<std::string> row = {},
               Value value = {}) {
        auto found =
            screens->named(name)->press({std::move(control), std::move(row), std::move(value)});
        if (const auto* act = std::get_if<Screen::Act>(&found)) {
            (*act)();
        } else {
            ADD_FAILURE() << std::get<std::string>(found);
        }
    }
    // The sentence that refuses the press; "" fails the test, and so does whatever it changes.
    std::string refusal(std::string_view name, std::string control,
                        std::optional<std::string> row = {}, Value value = {}) {
        std::string sentence;
        const Names changed = changedBy([&] {
            auto found = screens->named(name)->press({control, row, value});
            if (const auto* told = std::get_if<std::string>(&found)) sentence = *told;
        });
        EXPECT_NE(sentence, "") << control << " is no error";
        EXPECT_THAT(changed, IsEmpty()) << control;
        return sentence;
    }

    // The fields that `act` changes, at once or at the next turn.
    Names changedBy(const std::function<void()>& act) {
        loop.runReady();
        Names names;
        animated = {};
        const auto subscription = state->store().observe([&](const ChangedFields& changed) {
            for (const auto& [field, isAnimated] : changed) {
                names.emplace(field);
                if (isAnimated) animated.emplace(field);
            }
        });
        act();
        loop.runReady();
        return names;
    }
    // Of the last `changedBy`, those whose change was an animated one.
    Names animated;

    void setAccess(PermissionStatus status) { state->fullDiskAccess = status; }
};

}  // namespace morvane::screens
