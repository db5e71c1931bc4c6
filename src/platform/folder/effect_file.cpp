#include "platform/folder/effect_file.h"

#include <cerrno>
#include <fcntl.h>
#include <string_view>
#include <unistd.h>

namespace morvane::folder {

std::optional<EffectFile> EffectFile::open(const std::filesystem::path& file) {
    Descriptor opened(
        ::open(file.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_APPEND | O_CLOEXEC, 0666));
    if (!opened) return std::nullopt;
    return EffectFile(std::move(opened));
}

void EffectFile::write(const Effect& effect) const {
    const std::string line = effectJSON(effect) + "\n";
    // One call a line: the file is opened for appending, so lines of two threads stay whole.
    for (std::string_view rest = line; !rest.empty();) {
        const ssize_t written = ::write(file_.get(), rest.data(), rest.size());
        if (written < 0 && errno == EINTR) continue;
        if (written <= 0) return;
        rest.remove_prefix(static_cast<std::size_t>(written));
    }
}

}  // namespace morvane::folder
