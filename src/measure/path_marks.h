#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace morvane {

// Paths that a walk looks out for, seen from one folder: what is left of each below that folder.
// Costs nothing where no marked path lies below, which is true of nearly every folder of a disk.
// Views the text of the MarkedPaths it came from, which must outlive it.
class PathMarks {
public:
    PathMarks() = default;
    explicit PathMarks(const std::vector<std::string>& relativePaths);

    [[nodiscard]] bool isEmpty() const { return remainders_.empty(); }
    // Whether the entry `name` of this folder is itself a marked path.
    [[nodiscard]] bool contains(std::string_view name) const;
    // The marks as seen from the subfolder `name`.
    [[nodiscard]] PathMarks below(std::string_view name) const;

private:
    std::vector<std::string_view> remainders_;
};

// The text behind the marks of one walk.
class MarkedPaths {
public:
    // Keeps those of `paths` that lie below `root`, all compared in their standard form.
    MarkedPaths(const std::filesystem::path& root, const std::vector<std::filesystem::path>& paths);

    [[nodiscard]] PathMarks marks() const& { return PathMarks(relative_); }
    PathMarks marks() && = delete;  // the marks view what would be gone

private:
    std::vector<std::string> relative_;
};

}  // namespace morvane
