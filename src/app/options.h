#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace morvane {

// The command line of the preview.
struct PreviewOptions {
    std::filesystem::path disk;
    std::optional<bool> dark;  // what the desktop prefers when absent
    std::optional<std::filesystem::path> effects;
};

// Or one line that says what is wrong with it. `words` are the arguments without the program.
[[nodiscard]] std::variant<PreviewOptions, std::string> readOptions(
    const std::vector<std::string>& words);

}  // namespace morvane
