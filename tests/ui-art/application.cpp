#include <QGuiApplication>
#include <QtPlugin>
#include <gtest/gtest.h>
#include <memory>

Q_IMPORT_PLUGIN(Morvane_ArtPlugin)

namespace {

// One application for all tests of this program, without a display unless one is asked for, drawing
// in software, which looks the same wherever it runs.
class Application : public testing::Environment {
public:
    void SetUp() override {
        if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
        if (!qEnvironmentVariableIsSet("QT_QUICK_BACKEND")) qputenv("QT_QUICK_BACKEND", "software");
        application_ = std::make_unique<QGuiApplication>(count_, arguments_);
    }
    void TearDown() override { application_.reset(); }

private:
    int count_ = 1;
    char name_[12] = "ui_art_test";
    char* arguments_[2] = {name_, nullptr};
    std::unique_ptr<QGuiApplication> application_;
};

[[maybe_unused]] const testing::Environment* const application =
    testing::AddGlobalTestEnvironment(new Application);

}  // namespace
