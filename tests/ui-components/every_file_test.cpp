#include <QDir>
#include <gtest/gtest.h>

#include "stage.h"

namespace morvane {
namespace {

class EveryFile : public testing::TestWithParam<bool> {};

TEST_P(EveryFile, StandsByItselfWithoutAWarning) {
    const QDir folder(QStringLiteral(MORVANE_COMPONENTS_FOLDER));
    const QStringList files = folder.entryList({QStringLiteral("*.qml")});
    ASSERT_GE(files.size(), 15);
    for (const QString& file : files) {
        Stage stage;
        stage.theme().setDark(GetParam());
        const QString type = file.chopped(4);
        EXPECT_NE(stage.show(type + QStringLiteral(" {}")), nullptr) << qPrintable(type);
        EXPECT_EQ(stage.warnings().join(u'\n').toStdString(), "") << qPrintable(type);
    }
}

INSTANTIATE_TEST_SUITE_P(Appearance, EveryFile, testing::Bool(), [](const auto& appearance) {
    return appearance.param ? "Dark" : "Light";
});

}  // namespace
}  // namespace morvane
