#include "app/options.h"

namespace morvane {

namespace {

constexpr const char* usage =
    "usage: morvane-preview --disk DISK [--appearance light|dark] [--effects FILE]";

}  // namespace

std::variant<PreviewOptions, std::string> readOptions(const std::vector<std::string>& words) {
    PreviewOptions options;
    for (std::size_t place = 0; place < words.size(); place += 2) {
        const std::string& name = words[place];
        if (name != "--disk" && name != "--appearance" && name != "--effects") {
            return "unknown option \"" + name + "\" (" + usage + ")";
        }
        if (place + 1 == words.size()) return name + " needs a value (" + usage + ")";
        const std::string& value = words[place + 1];
        if (name == "--disk") {
            options.disk = value;
        } else if (name == "--effects") {
            options.effects = value;
        } else if (value == "light" || value == "dark") {
            options.dark = value == "dark";
        } else {
            return "--appearance is light or dark, not \"" + value + "\"";
        }
    }
    if (options.disk.empty()) return std::string(usage);
    return options;
}

}  // namespace morvane
