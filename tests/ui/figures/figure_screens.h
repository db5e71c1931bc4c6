#pragma once

#include <QPoint>
#include <functional>
#include <map>
#include <optional>

#include "ui/dialogs/folder_chooser.h"
#include "ui/dialogs/link_note.h"
#include "ui/dialogs/update_notice.h"
#include "ui/figures/figure_reader.h"

namespace morvane {

// Brings on view what the table of figures calls a screen: "review.open" is the review with open
// rows. Each is entered from the window as it starts.
class FigureScreens : public FigureReader {
protected:
    void TearDown() override;

    void enter(const QString& screen);

    // The pointer rests on the middle of the control, or presses it and holds on until the end.
    void hover(const QString& control);
    void hold(const QString& control);
    // The keyboard comes to the control, and the user is on the keyboard.
    void focus(const QString& control);
    void drag(const QString& control, int distance);

private:
    using State = std::function<void()>;
    using States = std::map<QString, State>;

    [[nodiscard]] States overviewStates();
    [[nodiscard]] States shellStates();
    [[nodiscard]] States reviewStates();
    [[nodiscard]] States settingsStates();
    [[nodiscard]] States dialogStates();
    [[nodiscard]] States componentStates();

    void showReview();
    void showSettings();
    void fillHistory();
    void openDialogs();
    void showGallery();
    void awaitScope();

    bool holds_ = false;
    std::optional<Scope> scope_;
    std::optional<FolderChooser> chooser_;
    LinkNote note_;
    UpdateNotice notice_;
};

}  // namespace morvane
