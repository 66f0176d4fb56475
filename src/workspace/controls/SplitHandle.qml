import QtQuick
import Ospra.Theme

/// The line between two areas: one pixel to see, a few to take hold of.
Rectangle {
    id: root

    implicitWidth: Theme.lineWidth
    implicitHeight: Theme.lineWidth
    color: Theme.separator
    containmentMask: grip

    Accessible.role: Accessible.Splitter
    Accessible.name: qsTr("Divider")

    Item {
        id: grip

        x: -(width - root.width) / 2
        width: Theme.splitterGrip
        height: root.height
    }

    HoverHandler {
        cursorShape: Qt.SplitHCursor
    }
}
