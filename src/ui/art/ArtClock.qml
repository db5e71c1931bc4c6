import QtQuick

// The clock of a moving scene: it asks for frames only while it is wanted and its window can be
// seen.
FrameAnimation {
    property Item scene: null
    property bool wanted: false

    running: wanted && scene !== null && scene.visible && scene.Window.window !== null
             && scene.Window.visibility !== Window.Hidden
             && scene.Window.visibility !== Window.Minimized
}
