#include "scanners/dev_sections.h"

#include <string>
#include <utility>

namespace morvane::CleanupScanner {

std::vector<DevSection> assembleDevSections(DevFindings found) {
    std::vector<DevSection> sections;
    for (std::size_t index = 0; index < devScanners.size(); ++index) {
        if (found[index].empty()) continue;
        const DevScanner& scanner = devScanners[index];
        sections.push_back({.id = std::string(scanner.id),
                            .name = std::string(scanner.name),
                            .icon = std::string(scanner.icon),
                            .subtitle = std::string(scanner.subtitle),
                            .items = std::move(found[index])});
    }
    return sections;
}

}  // namespace morvane::CleanupScanner
