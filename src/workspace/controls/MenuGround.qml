import QtQuick
import Ospra.Theme

/// The ground of a menu or dialog, with its edge and shadow.
Item {
    id: root

    property int radius: Theme.radiusMenu

    Shadow {
        anchors.fill: parent
        radius: root.radius
        blur: Theme.shadowBlur
        offset: Theme.shadowOffset
        color: Theme.menuShadow
    }

    Rectangle {
        anchors.fill: parent
        radius: root.radius
        color: Theme.menu
    }

    Rectangle {
        anchors.fill: parent
        anchors.margins: -Theme.lineWidth
        radius: root.radius + Theme.lineWidth
        color: "transparent"
        border.color: Theme.menuEdge
        border.width: Theme.lineWidth
    }
}
