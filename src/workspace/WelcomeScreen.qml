import QtQuick
import Ospra.Controls
import Ospra.Theme

/// What stands where there is no jump to show: how to get some.
EmptyState {
    id: root

    signal openFolder

    /// Puts the keyboard on the button.
    function takeFocus() {
        button.forceActiveFocus();
    }

    // A button that is not seen must not be what the keys press.
    onVisibleChanged: if (!root.visible) button.focus = false

    icon: "flight-path"
    iconSize: Theme.iconWelcome
    iconColor: Theme.textSecondary
    title: "Welcome to Ospra"
    titleStyle: Theme.title
    description: "Open a folder containing FlySight GPS data files to get started."
    spacing: Theme.space20

    Button {
        id: button

        anchors.horizontalCenter: parent.horizontalCenter
        kind: Button.Prominent
        icon.name: "folder"
        text: "Open Jumps Folder..."
        onClicked: root.openFolder()
    }
}
