#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "measure/disk_usage.h"
#include "support/fake_system.h"

namespace morvane {
namespace {

using enum DiskCategory;
using testing::ElementsAre;
using testing::IsEmpty;
using Slice = DiskUsage::Slice;
using Case = DiskUsage::Slice::Kind::Case;

constexpr std::int64_t GB = 1'000'000'000;

class Figures : public testing::Test {
protected:
    fakes::FakeVolume volume;

    [[nodiscard]] std::optional<DiskUsage> measured(VolumeFigures figures) {
        volume.setFigures(std::move(figures));
        return quickMeasure(volume);
    }
};

TEST_F(Figures, AreTheVolumesOwn) {
    EXPECT_EQ(measured({"Data", 500 * GB, 100 * GB, 140 * GB}),
              (DiskUsage{"Data", 500 * GB, 100 * GB, 40 * GB, {}, {}, {}, false}));
}

TEST_F(Figures, HaveANameEvenWhereTheSystemGivesNone) {
    EXPECT_EQ(measured({std::nullopt, 500, 100, 100})->volumeName, "Macintosh HD");
}

TEST_F(Figures, CountNothingPurgeableWhereNothingIsKnownOfIt) {
    EXPECT_EQ(measured({"Data", 500, 100, std::nullopt})->purgeableBytes, 0);
    EXPECT_EQ(measured({"Data", 500, 100, 90})->purgeableBytes, 0);
}

TEST_F(Figures, AreNothingWithoutATotalOrWhatIsAvailable) {
    EXPECT_EQ(measured({"Data", std::nullopt, 100, 100}), std::nullopt);
    EXPECT_EQ(measured({"Data", 500, std::nullopt, 100}), std::nullopt);
    volume.setFigures(std::nullopt);
    EXPECT_EQ(quickMeasure(volume), std::nullopt);
}

TEST_F(Figures, OfTheVolumeReplaceFourFieldsAlone) {
    const DiskUsage held{"Old", 1, 2, 3, 4, {{apps, 5}}, {media}, true};
    const DiskUsage figures{"New", 10, 20, 30, 40, {}, {}, false};
    EXPECT_EQ(withVolumeFigures(held, figures),
              (DiskUsage{"New", 10, 20, 30, 4, {{apps, 5}}, {media}, true}));
}

TEST(CategoryFolders, LieInTheHomeFolderUnlessTheyAreTheSystems) {
    EXPECT_THAT(categoryFolders(apps, "/Users/sam"),
                ElementsAre("/Applications", "/Users/sam/Applications"));
    EXPECT_THAT(categoryFolders(media, "/Users/sam"),
                ElementsAre("/Users/sam/Pictures", "/Users/sam/Movies"));
    EXPECT_THAT(categoryFolders(documents, "/Users/sam"),
                ElementsAre("/Users/sam/Documents", "/Users/sam/Desktop", "/Users/sam/Downloads"));
    EXPECT_THAT(
        categoryFolders(developer, "/h"),
        ElementsAre("/h/Library/Developer", "/h/Library/Android", "/h/.android", "/h/.gradle",
                    "/h/.m2", "/h/.npm", "/h/.pnpm-store", "/h/.bun", "/h/.yarn", "/h/.cargo",
                    "/h/.rustup", "/h/.cocoapods", "/h/.pub-cache", "/h/go"));
    EXPECT_THAT(categoryFolders(DiskCategory::system, "/h"), IsEmpty());
    EXPECT_THAT(categoryFolders(other, "/h"), IsEmpty());
}

DiskUsage halfTerabyte() {
    return {"Macintosh HD", 500 * GB, 100 * GB, 40 * GB, {}, {}, {}, true};
}

Slice category(DiskCategory which, std::int64_t bytes) {
    return {{Case::category, which}, bytes};
}
Slice purgeable(std::int64_t bytes) {
    return {{Case::purgeable, other}, bytes};
}

TEST(Slices, UseUpWhatIsNeitherFreeNorPurgeable) {
    DiskUsage disk = halfTerabyte();
    disk.systemBytes = 12 * GB;
    disk.measured = {{apps, 50 * GB}, {developer, 8 * GB}};
    EXPECT_THAT(slices(disk), ElementsAre(category(apps, 50 * GB), category(developer, 8 * GB),
                                          category(DiskCategory::system, 12 * GB),
                                          category(other, 290 * GB), purgeable(40 * GB)));
}

TEST(Slices, AreShrunkInProportionWhereFoldersAddUpToMore) {
    DiskUsage disk = halfTerabyte();
    disk.measured = {{apps, 540 * GB}, {media, 180 * GB}};
    EXPECT_THAT(slices(disk), ElementsAre(category(apps, 270 * GB), category(media, 90 * GB),
                                          purgeable(40 * GB)));
}

TEST(Slices, OfASystemLargerThanTheDiskLeaveTheRestAtNothing) {
    DiskUsage disk = halfTerabyte();
    disk.systemBytes = 900 * GB;
    disk.measured = {{apps, 5}, {media, 0}, {documents, 7}};
    EXPECT_THAT(slices(disk),
                ElementsAre(category(apps, 0), category(documents, 0),
                            category(DiskCategory::system, 360 * GB), purgeable(40 * GB)));
}

TEST(Slices, ShowTheRemainderAsPendingUntilItIsKnown) {
    DiskUsage disk = halfTerabyte();
    disk.isComplete = false;
    EXPECT_THAT(slices(disk),
                ElementsAre(Slice{{Case::pending, other}, 360 * GB}, purgeable(40 * GB)));
    disk.isComplete = true;
    EXPECT_THAT(slices(disk), ElementsAre(category(other, 360 * GB), purgeable(40 * GB)));
}

TEST(Slices, LeaveOutASystemOfNothing) {
    DiskUsage disk = halfTerabyte();
    disk.purgeableBytes = 0;
    disk.systemBytes = 0;
    EXPECT_THAT(slices(disk), ElementsAre(category(other, 400 * GB)));
}

TEST(Slices, OfAnEmptyRecordAreNone) {
    EXPECT_THAT(slices(DiskUsage{}), IsEmpty());
}

TEST(Slices, HaveTheirIdentities) {
    EXPECT_EQ(sliceIdentity(category(documents, 1)), "documents");
    EXPECT_EQ(sliceIdentity(purgeable(1)), "purgeable");
    EXPECT_EQ(sliceIdentity({{Case::pending, other}, 1}), "pending");
}

}  // namespace
}  // namespace morvane
