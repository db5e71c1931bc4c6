#include "removal/discard.h"

namespace morvane {

RemovalReport discard(Remover& remover, Disposal disposal,
                      const std::vector<RemovalTarget>& targets) {
    switch (disposal) {
        case Disposal::trash:
            return remover.recycle(targets);
        case Disposal::outright: {
            RemovalReport report = remover.removeOutright(targets);
            report.trashed.clear();
            return report;
        }
    }
    return {};
}

bool isGone(const FileSystem& files, const std::filesystem::path& path) {
    return files.presence(path) == Presence::gone;
}

RemovalTarget targetOf(const CleanupPart& part) {
    return {part.url, part.folder};
}
RemovalTarget targetOf(const AppPart& part) {
    return {part.url, part.folder};
}
RemovalTarget targetOf(const LargeFile& file) {
    return {file.url, file.folder};
}

}  // namespace morvane
