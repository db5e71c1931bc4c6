// The note about a link, and what is told about new versions.

#include <QSignalSpy>
#include <gmock/gmock.h>

#include "ui/dialogs/link_note.h"
#include "ui/dialogs/update_notice.h"

namespace morvane {
namespace {

using Kind = UpdateMessage::Kind;

std::string label(const QVariant& button) {
    return button.toMap().value(QStringLiteral("label")).toString().toStdString();
}

std::string key(const QVariant& button) {
    return button.toMap().value(QStringLiteral("key")).toString().toStdString();
}

TEST(LinkNotes, ShowTheLastLinkUntilClosed) {
    LinkNote note;
    EXPECT_FALSE(note.isOpen());
    note.show("x-apple.systempreferences:one");
    note.show("x-apple.systempreferences:two");
    EXPECT_TRUE(note.isOpen());
    EXPECT_EQ(note.link().toStdString(), "x-apple.systempreferences:two");
    EXPECT_EQ(label(note.close()), "OK");
    note.dismiss();
    EXPECT_FALSE(note.isOpen());
}

class UpdateNotices : public testing::Test {
protected:
    UpdateNotices() {
        notice.setPresses({.download = [this] { pressed += "download "; },
                           .reveal = [this](const auto& file) { pressed += file.native() + ' '; },
                           .dismiss = [this] { pressed += "dismiss "; }});
    }

    UpdateNotice notice;
    std::string pressed;
};

TEST_F(UpdateNotices, ANewVersionIsDownloadedOnlyWhenAsked) {
    notice.show({.kind = Kind::found,
                 .title = "Morvane 2 is available",
                 .notes = "One\nTwo",
                 .action = "Download",
                 .dismiss = "Not Now"});
    EXPECT_TRUE(notice.isOpen());
    EXPECT_EQ(notice.notes().toStdString(), "One\nTwo");
    EXPECT_EQ(label(notice.action()), "Download");
    EXPECT_EQ(key(notice.action()), "Return");
    EXPECT_EQ(key(notice.close()), "Escape");
    EXPECT_EQ(pressed, "");
    notice.act();
    EXPECT_EQ(pressed, "download ");
    EXPECT_TRUE(notice.isOpen());
}

TEST_F(UpdateNotices, ClosingStopsADownload) {
    QSignalSpy shown(&notice, &UpdateNotice::shown);
    notice.show({.kind = Kind::downloading, .dismiss = "Cancel", .fraction = 0.25});
    notice.show({.kind = Kind::downloading, .dismiss = "Cancel", .fraction = 0.5});
    EXPECT_TRUE(notice.isDownloading());
    EXPECT_EQ(notice.fraction(), 0.5);
    EXPECT_TRUE(notice.action().isNull());
    // It comes to the front once, not for each per cent.
    EXPECT_EQ(shown.size(), 1);
    notice.dismiss();
    notice.dismiss();
    EXPECT_EQ(pressed, "dismiss ");
    EXPECT_FALSE(notice.isOpen());
}

TEST_F(UpdateNotices, AFileThatIsReadyIsShownWhereItLies) {
    notice.show({.kind = Kind::ready, .action = "Show", .dismiss = "OK", .file = "/home/sam/x"});
    notice.act();
    EXPECT_EQ(pressed, "/home/sam/x dismiss ");
    EXPECT_FALSE(notice.isOpen());
}

TEST_F(UpdateNotices, ASentenceAloneIsClosedByReturn) {
    for (const Kind kind : {Kind::upToDate, Kind::failed}) {
        notice.show({.kind = kind, .title = "A title", .text = "A sentence.", .dismiss = "OK"});
        EXPECT_TRUE(notice.action().isNull());
        EXPECT_EQ(key(notice.close()), "Return");
        EXPECT_EQ(notice.text().toStdString(), "A sentence.");
        notice.act();
        EXPECT_TRUE(notice.isOpen());
        notice.dismiss();
    }
    EXPECT_EQ(pressed, "dismiss dismiss ");
}

}  // namespace
}  // namespace morvane
