#include "app/end_signals.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <csignal>
#include <gtest/gtest.h>

namespace morvane {
namespace {

class EndSignal : public testing::TestWithParam<int> {
protected:
    int count_ = 1;
    char name_[5] = "test";
    char* names_ = name_;
    QCoreApplication application_{count_, &names_};
};

TEST_P(EndSignal, AsksForTheEndInATurnOfTheMainLoop) {
    int asked = 0;
    const EndSignals watched([&] { ++asked; });
    ASSERT_EQ(std::raise(GetParam()), 0);
    EXPECT_EQ(asked, 0);
    while (asked == 0) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    QCoreApplication::processEvents();
    EXPECT_EQ(asked, 1);
}

TEST_P(EndSignal, OfTheSameKindOnceMoreEndsOutright) {
    const EndSignals watched([] {});
    EXPECT_EXIT(
        {
            std::raise(GetParam());
            std::raise(GetParam());
        },
        testing::KilledBySignal(GetParam()), "");
}

TEST_P(EndSignal, StaysIgnoredWhereItWas) {
    std::signal(GetParam(), SIG_IGN);
    {
        const EndSignals watched([] { ADD_FAILURE(); });
        ASSERT_EQ(std::raise(GetParam()), 0);
        QCoreApplication::processEvents();
    }
    EXPECT_EQ(std::signal(GetParam(), SIG_DFL), SIG_IGN);
}

TEST_P(EndSignal, IsAsItWasAfterwards) {
    {
        const EndSignals watched([] {});
    }
    EXPECT_EQ(std::signal(GetParam(), SIG_DFL), SIG_DFL);
}

INSTANTIATE_TEST_SUITE_P(Each, EndSignal, testing::Values(SIGTERM, SIGINT, SIGHUP));

}  // namespace
}  // namespace morvane
