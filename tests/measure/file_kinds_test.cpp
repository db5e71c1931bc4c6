#include "measure/file_kinds.h"

#include <gtest/gtest.h>

namespace morvane {
namespace {

TEST(ExtensionOf, IsWhatFollowsTheLastDotOfAName) {
    EXPECT_EQ(extensionOf("a.tar.gz"), "gz");
    EXPECT_EQ(extensionOf("a"), "");
    EXPECT_EQ(extensionOf(".profile"), "");
    EXPECT_EQ(extensionOf("a."), "");
    EXPECT_EQ(extensionOf("Foo.dSYM"), "dSYM");
}

TEST(DocumentBundle, IsOneOfTwelveKindsOfPackages) {
    EXPECT_EQ(documentBundleKind("Film.fcpbundle"), FileKind::video);
    EXPECT_EQ(documentBundleKind("Film.imovielibrary"), FileKind::video);
    EXPECT_EQ(documentBundleKind("Film.fcpxbundle"), FileKind::video);
    EXPECT_EQ(documentBundleKind("Win.pvm"), FileKind::diskImage);
    EXPECT_EQ(documentBundleKind("Win.vmwarevm"), FileKind::diskImage);
    EXPECT_EQ(documentBundleKind("Win.UTM"), FileKind::diskImage);
    EXPECT_EQ(documentBundleKind("Box.sparsebundle"), FileKind::diskImage);
    EXPECT_EQ(documentBundleKind("Song.logicx"), FileKind::audio);
    EXPECT_EQ(documentBundleKind("Song.band"), FileKind::audio);
    EXPECT_EQ(documentBundleKind("Talk.key"), FileKind::document);
    EXPECT_EQ(documentBundleKind("Book.pages"), FileKind::document);
    EXPECT_EQ(documentBundleKind("Tax.numbers"), FileKind::document);
    EXPECT_EQ(documentBundleKind("Film.app"), std::nullopt);
    EXPECT_EQ(documentBundleKind("Trip.photoslibrary"), std::nullopt);
    EXPECT_EQ(documentBundleKind("pages"), std::nullopt);
}

TEST(FileKind, FollowsTheExtensionInWhateverCase) {
    EXPECT_EQ(fileKind("a.MOV"), FileKind::video);
    EXPECT_EQ(fileKind("a.mkv"), FileKind::video);
    EXPECT_EQ(fileKind("a.mp4"), FileKind::video);
    EXPECT_EQ(fileKind("a.mp3"), FileKind::audio);
    EXPECT_EQ(fileKind("a.wav"), FileKind::audio);
    EXPECT_EQ(fileKind("a.Pdf"), FileKind::document);
    EXPECT_EQ(fileKind("a.psd"), FileKind::document);
    EXPECT_EQ(fileKind("a.sql"), FileKind::document);
    EXPECT_EQ(fileKind("a.cpio"), FileKind::archive);
}

TEST(FileKind, TakesAnImageOfADiskForNoArchive) {
    for (const char* name : {"a.dmg", "a.iso", "a.img", "a.sparseimage", "a.vdi", "a.vmdk", "a.vhd",
                             "a.vhdx", "a.qcow2", "a.hdd", "a.ipsw", "a.toast", "a.cdr"}) {
        EXPECT_EQ(fileKind(name), FileKind::diskImage) << name;
    }
    for (const char* name : {"a.zip", "a.xip", "a.tar", "a.gz", "a.tgz", "a.bz2", "a.xz", "a.7z",
                             "a.rar", "a.zst", "a.pkg"}) {
        EXPECT_EQ(fileKind(name), FileKind::archive) << name;
    }
}

TEST(FileKind, IsOtherWhereNothingIsKnown) {
    EXPECT_EQ(fileKind("a"), FileKind::other);
    EXPECT_EQ(fileKind("a.gguf"), FileKind::other);
    EXPECT_EQ(fileKind("a.sqlite"), FileKind::other);
    EXPECT_EQ(fileKind("a.\xff\xfe"), FileKind::other);
}

TEST(ProgramPart, IsALibraryAnObjectOrAPieceOfAVersionStore) {
    for (const char* name : {"a.dylib", "a.so", "a.node", "a.a", "a.o", "a.pack", "a.idx",
                             "a.DYLIB", "Setup.exe", "x.dll", "x.jar"}) {
        EXPECT_TRUE(isProgramPart(name, false)) << name;
    }
    EXPECT_FALSE(isProgramPart("a.mov", true));
    EXPECT_FALSE(isProgramPart("a.zip", false));
}

TEST(ProgramPart, IsWhatMayBeExecutedOnlyWithoutAnExtension) {
    EXPECT_TRUE(isProgramPart("clang", true));
    EXPECT_FALSE(isProgramPart("clang", false));
    EXPECT_TRUE(isProgramPart(".hidden", true));
    EXPECT_FALSE(isProgramPart("backup.2024", true));
}

TEST(NeverEntered, IsTakenLetterForLetter) {
    for (const char* name : {"node_modules",  "bower_components", "Pods",          "Carthage",
                             "DerivedData",   "SourcePackages",   "venv",          "site-packages",
                             "dist-packages", "__pycache__",      "vendor",        "target",
                             "build",         "A.framework",      "A.xcframework", "A.bundle",
                             "A.appex",       "A.plugin",         "A.kext",        "A.xcarchive",
                             "A.dSYM",        "de.lproj"}) {
        EXPECT_TRUE(isNeverEntered(name)) << name;
    }
    for (const char* name :
         {"Build", "builds", "pods", "A.dsym", "A.Framework", "framework", "Library", ".venv"}) {
        EXPECT_FALSE(isNeverEntered(name)) << name;
    }
}

}  // namespace
}  // namespace morvane
