#include "scanners/repaired_text.h"

#include "model/path_text.h"

namespace morvane::CleanupScanner {

std::string repairedUTF8(std::string_view bytes) {
    if (isUTF8(bytes)) return std::string(bytes);
    std::string text;
    text.reserve(bytes.size());
    while (!bytes.empty()) {
        const std::size_t length = utf8SequenceLength(bytes);
        if (length == 0) {
            text += "\uFFFD";
            bytes.remove_prefix(1);
        } else {
            text += bytes.substr(0, length);
            bytes.remove_prefix(length);
        }
    }
    return text;
}

}  // namespace morvane::CleanupScanner
