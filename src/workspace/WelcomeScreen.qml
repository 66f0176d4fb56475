import QtQuick
import Ospra.Controls
import Ospra.Theme

/// What stands where there is no jump to show: how to get some.
EmptyState {
    id: root

    signal openFolder

    icon: "flight-path"
    iconSize: Theme.iconWelcome
    iconColor: Theme.textSecondary
    title: "Welcome to Ospra"
    titleStyle: Theme.title
    description: "Open a folder containing FlySight GPS data files to get started."
    spacing: Theme.space20

    Button {
        anchors.horizontalCenter: parent.horizontalCenter
        kind: Button.Prominent
        icon.name: "folder"
        text: "Open Jumps Folder..."
        onClicked: root.openFolder()
    }
}
