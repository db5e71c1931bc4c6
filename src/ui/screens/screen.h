#pragma once

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <variant>

#include "core/app_state.h"
#include "ui/screens/controls.h"

namespace morvane {
class Updater;
}

namespace morvane::screens {

// What the program asks of its windows.
class Windows {
public:
    Windows() = default;
    Windows(const Windows&) = delete;
    Windows& operator=(const Windows&) = delete;
    virtual ~Windows() = default;

    // "main" or "about".
    virtual void open(std::string_view identifier) = 0;
};

// What the screens stand on. All of it outlives them.
struct ScreenNeeds {
    AppState& state;
    Updater& updater;
    Windows& windows;
};

// What a press carries once it was found right. `row` is empty where the control stands in no list.
struct Press {
    std::string row;
    bool on = false;
    std::int64_t index = 0;
    std::string text;
};

// What stands on one screen, made afresh from the store each time, and what its controls do.
// Reading starts nothing and writes no field. Main thread.
class Screen {
public:
    Screen() = default;
    Screen(const Screen&) = delete;
    Screen& operator=(const Screen&) = delete;
    virtual ~Screen() = default;

    [[nodiscard]] virtual std::string_view name() const = 0;
    virtual void write(FieldWriter& writer) const = 0;
    // What the screen does on appearing.
    virtual void appear() {}

    // What the press does, to be run by the caller; or one sentence that says why it cannot be
    // made, with nothing changed.
    using Act = std::function<void()>;
    [[nodiscard]] std::variant<Act, std::string> press(const PressRequest& request) const;

protected:
    using Handler = std::function<void(const Press&)>;
    // The control of these keys does this when it is used.
    void onPress(std::string control, Handler handler) {
        handlers_.emplace(std::move(control), std::move(handler));
    }

private:
    [[nodiscard]] virtual ControlOrRefusal find(const PressRequest& request) const = 0;

    std::map<std::string, Handler, std::less<>> handlers_;
};

// A screen whose content is a record.
template <ScreenRecord Record>
class ScreenOf : public Screen {
public:
    [[nodiscard]] virtual Record content() const = 0;
    void write(FieldWriter& writer) const final { writeValue(content(), writer); }

private:
    [[nodiscard]] ControlOrRefusal find(const PressRequest& request) const final {
        return findControl(content(), request);
    }
};

}  // namespace morvane::screens
