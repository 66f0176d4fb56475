import QtQuick
import Ospra.Theme
import Ospra.Workspace

/// Takes folders that are dropped on the window, and shows while one is held over it.
FolderDropItem {
    id: root

    Rectangle {
        anchors.fill: parent
        anchors.margins: Theme.space6
        visible: opacity > 0
        opacity: root.isOffered ? 1 : 0
        radius: Theme.radiusCard
        color: Theme.onTint
        border.color: Theme.accent
        border.width: Theme.focusRingWidth

        Behavior on opacity {
            NumberAnimation { duration: Theme.hoverDuration }
        }
    }
}
