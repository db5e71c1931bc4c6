// What holds for every implementation of Defaults, the one that tests use too.

#include <chrono>
#include <gtest/gtest.h>
#include <memory>

#include "defaults/scratch_disk.h"
#include "platform/defaults.h"
#include "platform/folder/file_defaults.h"
#include "support/memory_defaults.h"

namespace morvane {
namespace {

using namespace std::chrono_literals;

struct InMemory {
    MemoryDefaults defaults;
};

struct InAFile {
    test::ScratchDisk disk;
    folder::FileDefaults defaults{disk.root(), "/Users/sam/Library/Preferences/a.plist"};
};

template <class Where>
class DefaultsContract : public testing::Test {
public:
    Defaults& defaults() { return where_.defaults; }

private:
    Where where_;
};

using Implementations = testing::Types<InMemory, InAFile>;
TYPED_TEST_SUITE(DefaultsContract, Implementations);

constexpr Instant noon{std::chrono::seconds(1795262400)};

TYPED_TEST(DefaultsContract, HoldsNothingAtFirst) {
    Defaults& defaults = this->defaults();
    EXPECT_EQ(defaults.boolean("a"), std::nullopt);
    EXPECT_EQ(defaults.text("a"), std::nullopt);
    EXPECT_EQ(defaults.date("a"), std::nullopt);
    EXPECT_EQ(defaults.data("a"), std::nullopt);
    EXPECT_EQ(defaults.texts("a"), std::nullopt);
}

TYPED_TEST(DefaultsContract, GivesBackWhatWasWrittenBeforeItReachesTheDisk) {
    Defaults& defaults = this->defaults();
    defaults.setBoolean("boolean", false);
    defaults.setText("text", "Füße 😀");
    defaults.setDate("date", noon + 123456us);
    defaults.setData("data", std::string("\0\xff", 2));
    defaults.setTexts("texts", {"", "b", "b"});
    EXPECT_EQ(defaults.boolean("boolean"), false);
    EXPECT_EQ(defaults.text("text"), "Füße 😀");
    EXPECT_EQ(defaults.date("date"), noon + 123456us);
    EXPECT_EQ(defaults.data("data"), std::string("\0\xff", 2));
    EXPECT_EQ(defaults.texts("texts"), (std::vector<std::string>{"", "b", "b"}));
    defaults.flush();
    EXPECT_EQ(defaults.text("text"), "Füße 😀");
}

TYPED_TEST(DefaultsContract, CountsAValueOfAnotherTypeAsAbsent) {
    Defaults& defaults = this->defaults();
    defaults.setText("text", "true");
    EXPECT_FALSE(defaults.boolean("text") || defaults.date("text") || defaults.data("text") ||
                 defaults.texts("text"));
    defaults.setBoolean("boolean", true);
    EXPECT_FALSE(defaults.text("boolean") || defaults.date("boolean"));
    defaults.setData("data", "text");
    EXPECT_FALSE(defaults.text("data") || defaults.texts("data"));
    defaults.setTexts("texts", {});
    EXPECT_EQ(defaults.texts("texts"), std::vector<std::string>());
    EXPECT_FALSE(defaults.text("texts") || defaults.data("texts"));
}

TYPED_TEST(DefaultsContract, ReplacesAValueByOneOfAnotherType) {
    Defaults& defaults = this->defaults();
    defaults.setText("a", "b");
    defaults.setBoolean("a", true);
    EXPECT_EQ(defaults.text("a"), std::nullopt);
    EXPECT_EQ(defaults.boolean("a"), true);
}

TYPED_TEST(DefaultsContract, ForgetsWhatIsRemovedAndNothingElse) {
    Defaults& defaults = this->defaults();
    defaults.setText("a", "1");
    defaults.setText("ab", "2");
    defaults.remove("a");
    defaults.remove("absent");
    EXPECT_EQ(defaults.text("a"), std::nullopt);
    EXPECT_EQ(defaults.text("ab"), "2");
    defaults.flush();
}

}  // namespace
}  // namespace morvane
