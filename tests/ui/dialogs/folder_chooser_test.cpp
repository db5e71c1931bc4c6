// What the folder chooser shows of a disk and what it answers.

#include "ui/dialogs/folder_chooser.h"

#include <QCoreApplication>
#include <gmock/gmock.h>

#include "support/fake_system.h"
#include "tasks/event_loop.h"
#include "tasks/pool.h"

namespace morvane {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Answer = std::optional<std::vector<std::filesystem::path>>;

class FolderChoosing : public testing::Test {
protected:
    FolderChoosing() {
        for (const char* name : {"work", "Art", "Zoo"}) system.files.addFolder(system.home(name));
        system.files.addFolder(system.home("work/deep"));
        system.files.addFile(system.home("note.txt"), 10);
        system.files.addLink(system.home("way"), "/Users/sam/work");
        system.files.addFolder(system.home("Film.app"));
        system.files.change(system.home("Film.app"),
                            [](Attributes& attributes) { attributes.isPackage = true; });
        system.files.addFolder(system.home(".secret"));
    }
    ~FolderChoosing() override {
        chooser.reset();
        scope.cancel();
        EXPECT_TRUE(loop.runUntil([this] { return scope.isEmpty(); }));
    }

    void open(const std::filesystem::path& directory = "/Users/sam") {
        chooser->choose({"Ignore", "A message.", directory}, [this](const Answer& chosen) {
            ++answers;
            answer = chosen;
        });
        look();
    }
    void look() {
        EXPECT_TRUE(loop.runUntil([this] { return scope.isEmpty(); }));
    }
    [[nodiscard]] std::vector<std::string> labels() {
        std::vector<std::string> shown;
        for (const ListedFolder& folder : chooser->rows()->folders()) {
            shown.push_back(folder.label);
        }
        return shown;
    }
    [[nodiscard]] std::string location() { return chooser->location().toStdString(); }

    fakes::FakeSystem system;
    EventLoop loop{system.now};
    Pool pool;
    Scope scope{Runtime{loop, pool}};
    std::optional<FolderChooser> chooser{std::in_place, system.platform, scope};
    Answer answer;
    int answers = 0;
};

TEST_F(FolderChoosing, ListsFoldersByNameAndNothingElse) {
    open();
    EXPECT_THAT(labels(), ElementsAre("Art", "Library", "work", "Zoo"));
    EXPECT_EQ(location(), "/Users/sam");
    EXPECT_EQ(chooser->message().toStdString(), "A message.");
    EXPECT_EQ(chooser->prompt().value(QStringLiteral("label")).toString().toStdString(), "Ignore");
    EXPECT_EQ(chooser->note().toStdString(), "");
}

TEST_F(FolderChoosing, TakesSeveralAtOnce) {
    open();
    chooser->press(0, Qt::NoModifier);
    chooser->press(3, Qt::ControlModifier);
    EXPECT_EQ(chooser->chosen().toStdString(), "2 folders");
    chooser->accept();
    EXPECT_FALSE(chooser->isOpen());
    EXPECT_THAT(*answer, ElementsAre("/Users/sam/Art", "/Users/sam/Zoo"));
}

TEST_F(FolderChoosing, WithNothingChosenTakesTheFolderOnView) {
    open();
    chooser->enter(2);
    look();
    EXPECT_THAT(labels(), ElementsAre("deep"));
    EXPECT_EQ(chooser->chosen().toStdString(), "work");
    chooser->accept();
    EXPECT_THAT(*answer, ElementsAre("/Users/sam/work"));
}

TEST_F(FolderChoosing, GoesUpToTheRootAndShowsWhereItCameFrom) {
    open();
    chooser->goUp();
    look();
    EXPECT_EQ(location(), "/Users");
    EXPECT_EQ(chooser->chosen().toStdString(), "sam");
    chooser->goUp();
    look();
    EXPECT_EQ(location(), "/");
    EXPECT_FALSE(chooser->up().value(QStringLiteral("enabled")).toBool());
    chooser->goUp();
    EXPECT_EQ(location(), "/");
}

TEST_F(FolderChoosing, DismissedChoosesNothingOnce) {
    answer.emplace();
    open();
    chooser->dismiss();
    chooser->dismiss();
    chooser->accept();
    EXPECT_EQ(answer, std::nullopt);
    EXPECT_EQ(answers, 1);
}

TEST_F(FolderChoosing, SaysWhyThereIsNothingToShow) {
    open();
    chooser->enter(0);
    look();
    EXPECT_EQ(chooser->note().toStdString(), "There are no folders in here.");
    chooser->goUp();
    look();
    system.files.refuseReading(system.home("work"));
    chooser->enter(2);
    look();
    EXPECT_THAT(labels(), IsEmpty());
    EXPECT_EQ(chooser->note().toStdString(), "This folder can’t be read.");
}

TEST_F(FolderChoosing, ADirectoryThatIsNotThereShowsNothing) {
    open("/Users/nobody");
    EXPECT_EQ(chooser->note().toStdString(), "This folder can’t be read.");
    EXPECT_EQ(location(), "/Users/nobody");
}

TEST_F(FolderChoosing, TheLastFolderGoneToIsTheOneShown) {
    open();
    chooser->enter(2);
    chooser->goUp();
    look();
    EXPECT_EQ(location(), "/Users/sam");
    EXPECT_THAT(labels(), ElementsAre("Art", "Library", "work", "Zoo"));
}

TEST_F(FolderChoosing, ASecondPanelMeanwhileCountsAsDismissed) {
    open();
    bool dismissed = false;
    chooser->choose({"Other", "", "/"}, [&](const Answer& chosen) { dismissed = !chosen; });
    EXPECT_FALSE(dismissed);
    for (int turn = 0; turn < 10 && !dismissed; ++turn) QCoreApplication::processEvents();
    EXPECT_TRUE(dismissed);
    EXPECT_EQ(answers, 0);
    EXPECT_EQ(chooser->prompt().value(QStringLiteral("label")).toString().toStdString(), "Ignore");
}

TEST_F(FolderChoosing, EndsWithAnAnswerToWhoWaits) {
    answer.emplace();
    open();
    chooser.reset();
    EXPECT_EQ(answers, 1);
    EXPECT_EQ(answer, std::nullopt);
}

}  // namespace
}  // namespace morvane
