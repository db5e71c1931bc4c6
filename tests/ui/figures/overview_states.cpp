#include "ui/figures/figure_screens.h"

namespace morvane {

FigureScreens::States FigureScreens::overviewStates() {
    const auto phase = [this](ScanPhase phase) {
        return [this, phase] {
            fillBar();
            show(phase);
        };
    };
    return {{QStringLiteral("overview.idle"), phase(ScanPhase::idle)},
            {QStringLiteral("overview.scanning"), phase(ScanPhase::scanning)},
            {QStringLiteral("overview.done"), phase(ScanPhase::done)},
            {QStringLiteral("overview.success"), phase(ScanPhase::success)},
            {QStringLiteral("overview.empty"), phase(ScanPhase::empty)},
            {QStringLiteral("overview.note"), [this] {
                 fillBar();
                 state->fullDiskAccess = PermissionStatus::denied;
                 DiskUsage disk = *state->disk;
                 disk.isComplete = true;
                 state->disk = disk;
             }}};
}

}  // namespace morvane
