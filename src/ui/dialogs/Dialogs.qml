import QtQuick
import Morvane.Window

// The small windows beside the main one, each shown while its model is open.
Item {
    id: root

    required property FolderChooser chooser
    required property LinkNote note
    required property UpdateNotice notice
    required property Window mainWindow

    FolderChooserWindow {
        chooser: root.chooser
        transientParent: root.mainWindow
    }
    LinkNoteWindow {
        note: root.note
        transientParent: root.mainWindow
    }
    UpdateWindow {
        notice: root.notice
        transientParent: root.mainWindow
    }
}
