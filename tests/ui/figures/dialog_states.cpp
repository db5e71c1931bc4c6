#include "ui/figures/figure_screens.h"

namespace morvane {

void FigureScreens::openDialogs() {
    scope_.emplace(Runtime{loop, pool});
    chooser_.emplace(state->platform(), *scope_);
    engine().setInitialProperties({{QStringLiteral("chooser"), QVariant::fromValue(&*chooser_)},
                                   {QStringLiteral("note"), QVariant::fromValue(&note_)},
                                   {QStringLiteral("notice"), QVariant::fromValue(&notice_)},
                                   {QStringLiteral("mainWindow"), QVariant::fromValue(&window())}});
    engine().load(QUrl(QStringLiteral("qrc:/Morvane/Window/Dialogs.qml")));
    ASSERT_EQ(engine().rootObjects().size(), 2);
}

FigureScreens::States FigureScreens::dialogStates() {
    const auto update = [this](UpdateMessage message) {
        return [this, message = std::move(message)] {
            openDialogs();
            notice_.show(message);
        };
    };
    return {
        {QStringLiteral("dialogs.link"),
         [this] {
             openDialogs();
             note_.show("x-apple.systempreferences:one");
         }},
        {QStringLiteral("dialogs.folders"),
         [this] {
             for (const char* name : {"A", "B"}) files.addFolder(home(name));
             openDialogs();
             chooser_->choose({"Ignore", "A message.", "/Users/sam"}, [](const auto&) {});
             awaitScope();
         }},
        {QStringLiteral("dialogs.found"), update({.kind = UpdateMessage::Kind::found,
                                                  .title = "A new version is there",
                                                  .text = "A sentence.",
                                                  .notes = "One\nTwo",
                                                  .action = "Download",
                                                  .dismiss = "Not Now"})},
        {QStringLiteral("dialogs.downloading"), update({.kind = UpdateMessage::Kind::downloading,
                                                        .title = "On its way",
                                                        .text = "A sentence.",
                                                        .dismiss = "Cancel",
                                                        .fraction = 0.25})},
        {QStringLiteral("dialogs.failed"), update({.kind = UpdateMessage::Kind::failed,
                                                   .title = "It did not come",
                                                   .text = "A sentence.",
                                                   .dismiss = "OK"})}};
}

}  // namespace morvane
