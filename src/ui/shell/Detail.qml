import QtQuick
import Morvane.Theme
import Morvane.Window

// The screen on view. A screen that was seen stays as it was left while another is shown.
Rectangle {
    id: root

    required property WindowModel model

    color: Theme.surface
    clip: true

    component Place: Loader {
        required property string name
        readonly property bool isOnView: root.model.onView === name
        property bool wasOnView: false

        anchors.fill: parent
        active: wasOnView
        visible: isOnView
        onIsOnViewChanged: if (isOnView) wasOnView = true
        Component.onCompleted: if (isOnView) wasOnView = true
    }

    Place {
        name: "overview"
        sourceComponent: Component {
            OverviewView { screen: root.model.overview }
        }
    }
    Place {
        name: "sweepReview"
        sourceComponent: Component {
            SweepReviewView { screen: root.model.sweepReview }
        }
    }
    Place {
        name: "settings"
        sourceComponent: Component {
            SettingsView { screen: root.model.settings }
        }
    }
}
