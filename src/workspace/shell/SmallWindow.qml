import QtQuick
import QtQuick.Window
import QtQuick.Templates as T
import Ospra.Theme

/// A window of the size of its content beside the program's window. Escape closes it.
T.ApplicationWindow {
    id: root

    required property real contentWidth
    // What has the keyboard's focus when the window is shown.
    required property Item firstFocus
    default property alias entries: column.data

    /// Shows the window, or brings it to the front.
    function present() {
        root.firstFocus.forceActiveFocus(Qt.TabFocusReason);
        root.show();
        root.raise();
        root.requestActivate();
    }

    width: root.contentWidth
    height: Math.ceil(column.height) + 2 * Theme.space14
    minimumWidth: root.width
    maximumWidth: root.width
    minimumHeight: root.height
    maximumHeight: root.height
    flags: Qt.Dialog
    color: Theme.menu
    font.family: Theme.fontFamily
    font.pointSize: Theme.body.pointSize

    Shortcut {
        sequences: ["Escape", "Ctrl+W"]
        onActivated: root.close()
    }

    Shortcut {
        sequence: "Ctrl+Q"
        onActivated: Qt.quit()
    }

    Item {
        anchors.fill: parent

        Accessible.role: Accessible.Dialog
        Accessible.name: root.title

        Column {
            id: column

            x: Theme.space14
            y: Theme.space14
            width: parent.width - 2 * Theme.space14
            spacing: Theme.space12
        }
    }
}
