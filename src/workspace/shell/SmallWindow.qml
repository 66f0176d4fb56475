import QtQuick
import QtQuick.Templates as T
import Ospra.Theme

/// A window of the size of its content beside the program's window. Escape closes it.
T.ApplicationWindow {
    id: root

    required property int contentWidth
    // What has the keyboard's focus when the window is shown.
    required property Item firstFocus
    readonly property int contentHeight: Math.ceil(column.height) + 2 * Theme.space14
    default property alias entries: column.data

    /// Takes the size of the content. The limits go first: no window grows beyond them.
    function fit() {
        root.maximumWidth = Math.max(root.width, root.contentWidth);
        root.maximumHeight = Math.max(root.height, root.contentHeight);
        root.minimumWidth = Math.min(root.width, root.contentWidth);
        root.minimumHeight = Math.min(root.height, root.contentHeight);
        root.width = root.contentWidth;
        root.height = root.contentHeight;
        root.minimumWidth = root.maximumWidth = root.contentWidth;
        root.minimumHeight = root.maximumHeight = root.contentHeight;
    }

    /// Shows the window, or brings it to the front.
    function present() {
        root.fit();
        root.firstFocus.forceActiveFocus(Qt.TabFocusReason);
        root.show();
        root.raise();
        root.requestActivate();
    }

    onContentWidthChanged: root.fit()
    onContentHeightChanged: root.fit()

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
            width: root.contentWidth - 2 * Theme.space14
            spacing: Theme.space12
        }
    }
}
