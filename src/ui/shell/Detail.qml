import QtQuick
import Morvane.Theme
import Morvane.Window

// The screen on view. A screen stays as it was left while another is shown.
Rectangle {
    id: root

    // The screens, as WindowModel has them.
    required property var model

    color: Theme.surface
    clip: true

    OverviewView {
        anchors.fill: parent
        visible: root.model.onView === "overview"
        screen: root.model.overview
    }
    SweepReviewView {
        anchors.fill: parent
        visible: root.model.onView === "sweepReview"
        screen: root.model.sweepReview
    }
    SettingsView {
        anchors.fill: parent
        visible: root.model.onView === "settings"
        screen: root.model.settings
    }
}
