#include "app/untimely_end.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <atomic>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <gtest/gtest.h>
#include <optional>

namespace morvane {
namespace {

void say(const char* words) {
    std::fputs(words, stderr);
}

struct SaysThatItIsTornDown {
    ~SaysThatItIsTornDown() { say("torn down"); }
};

// What the program has made once, and for good.
void makeForGood() {
    static const SaysThatItIsTornDown made;
}

TEST(UntimelyEnd, FinishesAndTearsNothingDownThatWasThereBefore) {
    EXPECT_EXIT(
        {
            makeForGood();
            const UntimelyEnd end([] { say("finished\n"); });
            std::exit(0);
        },
        testing::ExitedWithCode(1), "^finished\n$");
}

TEST(UntimelyEnd, FinishesOnceThoughTheProcessEndsMeanwhileOnceMore) {
    EXPECT_EXIT(
        {
            const UntimelyEnd end([] {
                say("finished\n");
                std::exit(0);
            });
            std::exit(0);
        },
        testing::ExitedWithCode(1), "^finished\n$");
}

TEST(UntimelyEnd, FinishesOnTheMainThreadWhereAnotherEndsTheProcess) {
    EXPECT_EXIT(
        {
            int count = 1;
            char name[] = "test";
            char* names = name;
            const QCoreApplication application(count, &names);
            const auto own = std::this_thread::get_id();
            const UntimelyEnd end([own] {
                if (std::this_thread::get_id() == own) say("finished\n");
            });
            std::thread other([] { std::exit(0); });
            while (true) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        },
        testing::ExitedWithCode(1), "^finished\n$");
}

TEST(UntimelyEnd, FinishesWhereBothEndTheProcess) {
    EXPECT_EXIT(
        {
            const UntimelyEnd end([] { say("finished\n"); });
            std::atomic<bool> goes = false;
            std::thread other([&] {
                goes = true;
                std::exit(0);
            });
            while (!goes) std::this_thread::yield();
            std::exit(0);
        },
        testing::ExitedWithCode(1), "^finished\n$");
}

TEST(UntimelyEnd, FinishesInThePlaceOfAMainThreadThatWaitsForTheOther) {
    EXPECT_EXIT(
        {
            const UntimelyEnd end([] { say("finished\n"); }, std::chrono::milliseconds(200));
            std::thread([] { std::exit(0); }).join();
        },
        testing::ExitedWithCode(1), "^finished\n$");
}

TEST(UntimelyEnd, TearsNothingDownThatWasMadeBeforeItCameFirstAgain) {
    EXPECT_EXIT(
        {
            const UntimelyEnd end([] { say("finished\n"); });
            makeForGood();
            UntimelyEnd::comeFirst();
            std::exit(0);
        },
        testing::ExitedWithCode(1), "^finished\n$");
}

TEST(UntimelyEnd, AddsNothingOnceItHasGone) {
    EXPECT_EXIT(
        {
            makeForGood();
            {
                const UntimelyEnd end([] { say("finished\n"); });
            }
            std::exit(0);
        },
        testing::ExitedWithCode(0), "^torn down$");
}

}  // namespace
}  // namespace morvane
