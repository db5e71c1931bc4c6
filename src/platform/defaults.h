#pragma once

#include <optional>
#include <string>
#include <vector>

#include "model/instant.h"

namespace morvane {

// The user defaults of the program: values under keys that survive a restart. A value of another
// type than asked for counts as absent. Values are read from memory; a write reaches the disk in
// order, by and by, and leaves the old or the new on a power cut. Main thread.
class Defaults {
public:
    Defaults() = default;
    Defaults(const Defaults&) = delete;
    Defaults& operator=(const Defaults&) = delete;
    virtual ~Defaults() = default;

    [[nodiscard]] virtual std::optional<bool> boolean(const std::string& key) const = 0;
    [[nodiscard]] virtual std::optional<std::string> text(const std::string& key) const = 0;
    [[nodiscard]] virtual std::optional<Instant> date(const std::string& key) const = 0;
    [[nodiscard]] virtual std::optional<std::string> data(const std::string& key) const = 0;
    // A list with anything but text in it counts as absent.
    [[nodiscard]] virtual std::optional<std::vector<std::string>> texts(
        const std::string& key) const = 0;

    virtual void setBoolean(const std::string& key, bool value) = 0;
    virtual void setText(const std::string& key, const std::string& value) = 0;
    virtual void setDate(const std::string& key, Instant value) = 0;
    virtual void setData(const std::string& key, const std::string& bytes) = 0;
    virtual void setTexts(const std::string& key, const std::vector<std::string>& values) = 0;
    virtual void remove(const std::string& key) = 0;

    // Waits until everything written has reached the disk (or failed to).
    virtual void flush() = 0;
};

}  // namespace morvane
