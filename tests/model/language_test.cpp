// The words in a process that speaks the user's language, as a window's does.

#include <clocale>
#include <cstdlib>
#include <gtest/gtest.h>

#include "model/words.h"

namespace morvane {
namespace {

class CommaLanguage : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_EQ(::setenv("LOCPATH", MORVANE_TEST_LANGUAGES, 1), 0);
        ASSERT_NE(std::setlocale(LC_ALL, "de_DE.UTF-8"), nullptr);
        ASSERT_STREQ(std::localeconv()->decimal_point, ",");
    }
    void TearDown() override {
        std::setlocale(LC_ALL, "C");
        ::unsetenv("LOCPATH");
    }
};

TEST_F(CommaLanguage, LeavesThePointInSizes) {
    EXPECT_EQ(sizeText(1234), "1.2 GB");
    EXPECT_EQ(sizeText(1'234'567'000), "1234567.0 GB");
    EXPECT_EQ(sizeText(999.6), "1000 MB");
    EXPECT_EQ(capacityText(99.5), "99.5 GB");
    EXPECT_EQ(capacityText(1'234'567), "1234567 GB");
}

}  // namespace
}  // namespace morvane
