#include "model/apps.h"

#include <algorithm>

namespace morvane {

double megabytes(const InstalledApp& app) {
    double sum = 0;
    for (const AppPart& part : app.parts) sum += static_cast<double>(part.bytes) / 1e6;
    return sum;
}

bool hasLaunchAgents(const InstalledApp& app) {
    return std::any_of(app.parts.begin(), app.parts.end(),
                       [](const AppPart& part) { return part.kind == launchAgentsKind; });
}

}  // namespace morvane
