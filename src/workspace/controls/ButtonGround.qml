import QtQuick
import QtQuick.Templates as T
import Ospra.Theme

/// The ground of a button with its edge, its answer to the pointer and its focus ring.
Rectangle {
    id: root

    required property T.Control control
    required property color groundColor
    required property color edgeColor
    required property bool isHovered
    required property bool isPressed

    radius: Theme.radiusControl
    color: root.groundColor
    border.color: root.edgeColor
    border.width: root.edgeColor.a > 0 ? Theme.lineWidth : 0

    Behavior on color {
        ColorAnimation { duration: Theme.toggleDuration }
    }

    StateOverlay {
        isHovered: root.isHovered
        isPressed: root.isPressed
    }

    FocusRing {
        control: root.control
        controlRadius: root.radius
    }
}
