#include "measure/path_marks.h"

#include <algorithm>

#include "model/path_text.h"

namespace morvane {

PathMarks::PathMarks(const std::vector<std::string>& relativePaths)
    : remainders_(relativePaths.begin(), relativePaths.end()) {}

bool PathMarks::contains(std::string_view name) const {
    return std::find(remainders_.begin(), remainders_.end(), name) != remainders_.end();
}

PathMarks PathMarks::below(std::string_view name) const {
    PathMarks marks;
    for (std::string_view remainder : remainders_) {
        if (remainder.size() > name.size() && remainder.starts_with(name) &&
            remainder[name.size()] == '/') {
            marks.remainders_.push_back(remainder.substr(name.size() + 1));
        }
    }
    return marks;
}

MarkedPaths::MarkedPaths(const std::filesystem::path& root,
                         const std::vector<std::filesystem::path>& paths) {
    const std::string top = standardised(root).native();
    for (const std::filesystem::path& path : paths) {
        const std::string marked = standardised(path).native();
        if (marked == top || !isInside(marked, top)) continue;
        // "/" is the one standard path that ends in the slash.
        relative_.push_back(marked.substr(top == "/" ? 1 : top.size() + 1));
    }
}

}  // namespace morvane
