#include <QDir>
#include <tuple>

#include "ui/window_test.h"

namespace morvane {
namespace {

struct PhaseOnView {
    ScanPhase phase;
    const char* name;
    const char* control;  // what its card certainly has
};
constexpr std::array phases{
    PhaseOnView{ScanPhase::idle, "Idle", "idleButton"},
    PhaseOnView{ScanPhase::scanning, "Scanning", "scanningButton"},
    PhaseOnView{ScanPhase::done, "Done", "resultsReview"},
    PhaseOnView{ScanPhase::success, "Success", "successDone"},
    PhaseOnView{ScanPhase::empty, "Empty", "spotlessButton"},
};

class EveryPhase : public WindowTest,
                   public testing::WithParamInterface<std::tuple<PhaseOnView, bool>> {};

// With MORVANE_PICTURES naming a folder, each is left there to look at.
TEST_P(EveryPhase, StandsInItsCardWithoutAWarning) {
    const auto& [on, dark] = GetParam();
    theme().setDark(dark);
    fillBar();
    show(on.phase);
    for (const PhaseOnView& each : phases) {
        EXPECT_EQ(find(QString::fromUtf8(each.control)) != nullptr, each.phase == on.phase)
            << each.control;
    }
    EXPECT_EQ(picture().pixelColor(3, 200).lightness() < 128, dark);
    const QString folder = qEnvironmentVariable("MORVANE_PICTURES");
    if (folder.isEmpty()) return;
    for (const QSize size : {QSize(980, 668), QSize(1100, 720), QSize(1600, 1000)}) {
        window().resize(size);
        settle();
        const QString name = QStringLiteral("overview-%1-%2-%3-%4x.png")
                                 .arg(QString::fromUtf8(on.name).toLower(),
                                      dark ? QStringLiteral("dark") : QStringLiteral("light"))
                                 .arg(size.width())
                                 .arg(window().effectiveDevicePixelRatio());
        EXPECT_TRUE(picture().save(QDir(folder).filePath(name)));
    }
}

INSTANTIATE_TEST_SUITE_P(Overview, EveryPhase,
                         testing::Combine(testing::ValuesIn(phases), testing::Bool()),
                         [](const auto& shown) {
                             return std::string(std::get<0>(shown.param).name) +
                                    (std::get<1>(shown.param) ? "Dark" : "Light");
                         });

}  // namespace
}  // namespace morvane
