#include "app/options.h"

#include <gtest/gtest.h>

namespace morvane {
namespace {

PreviewOptions right(const std::vector<std::string>& words) {
    const auto read = readOptions(words);
    EXPECT_TRUE(std::holds_alternative<PreviewOptions>(read));
    const auto* options = std::get_if<PreviewOptions>(&read);
    return options == nullptr ? PreviewOptions{} : *options;
}

TEST(Options, OfThePreviewAreADiskAnAppearanceAndAFileInAnyOrder) {
    EXPECT_EQ(right({"--disk", "d"}).disk, "d");
    EXPECT_EQ(right({"--disk", "d"}).dark, std::nullopt);
    EXPECT_EQ(right({"--disk", "d"}).effects, std::nullopt);
    const PreviewOptions all = right({"--effects", "f", "--appearance", "dark", "--disk", "--x"});
    EXPECT_EQ(all.disk, "--x");
    EXPECT_EQ(all.dark, true);
    EXPECT_EQ(all.effects, "f");
    EXPECT_EQ(right({"--disk", "d", "--appearance", "light"}).dark, false);
}

}  // namespace
}  // namespace morvane
