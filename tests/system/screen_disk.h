#pragma once

#include <string>

#include "screens/screen_shapes.h"
#include "system/system_test.h"

namespace morvane::test {

// What stands on the screens of a program on a disk in a folder, and their controls.
class OnScreen : public SystemTest {
protected:
    static inline const std::string caches = "/Users/sam/Library/Caches/";

    Json screen(const std::string& name) { return driver().result({{"screen", name}}); }
    Json card() { return screen("overview").at("card"); }

    static Json pressing(const std::string& screen, const std::string& control,
                         const Json& row = nullptr, const Json& value = nullptr) {
        Json press{{"screen", screen}, {"control", control}};
        if (!row.is_null()) press["row"] = row;
        if (!value.is_null()) press["value"] = value;
        return {{"press", press}};
    }
    // Uses a control and waits for all that comes of it.
    void press(const std::string& screen, const std::string& control, const Json& row = nullptr,
               const Json& value = nullptr) {
        EXPECT_EQ(driver().result(pressing(screen, control, row, value)), nullptr);
    }
    // The same, answered after what it does at once.
    void beginPress(const std::string& screen, const std::string& control,
                    const Json& row = nullptr, const Json& value = nullptr) {
        Json request = pressing(screen, control, row, value);
        request["wait"] = false;
        EXPECT_EQ(driver().result(request), nullptr);
    }
    void appear(const std::string& screen) {
        EXPECT_EQ(driver().result({{"appear", screen}}), nullptr);
    }
    void becomeActive() { EXPECT_EQ(driver().result({{"becameActive", true}}), nullptr); }

    // Every screen, to compare before and after.
    Json everyScreen() {
        Json all = Json::object();
        for (const auto& [name, shape] : screenShapes()) all[name] = screen(name);
        return all;
    }
    void expectShapes() {
        const Json all = everyScreen();
        for (const auto& [name, shape] : screenShapes()) {
            EXPECT_EQ(shapeFaults(all.at(name), shape, name), "");
        }
    }

    // Something in each category but the backups.
    void fillDisk() {
        disk.text(caches + "Acme/data", "one");
        disk.file(caches + "Bolt/data", 3'000'000);
        disk.file("/Users/sam/Library/Logs/old.log", 2'000'000);
        disk.file("/Users/sam/Downloads/Thing.dmg", 5'000'000);
    }
    // A tool that stops each scan at the gate "gate".
    void holdScans() {
        disk.gate("gate");
        disk.tool("/usr/local/bin/docker", R"(read line < "$MORVANE_DISK/gate"; exit 1)");
    }
};

}  // namespace morvane::test
