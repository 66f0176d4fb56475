import QtQuick
import Ospra.Theme

/// What lies over the ground of a control while it is hovered or pressed.
Rectangle {
    id: root

    required property bool isHovered
    required property bool isPressed

    anchors.fill: root.parent
    radius: Theme.radiusControl
    color: root.isPressed ? Theme.pressed : root.isHovered ? Theme.hover : Qt.alpha(Theme.hover, 0)

    Behavior on color {
        ColorAnimation { duration: Theme.hoverDuration }
    }
}
