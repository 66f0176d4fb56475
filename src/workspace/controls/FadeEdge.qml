import QtQuick
import Ospra.Theme

/// Fades what lies below it into the ground, at the trailing end of its parent.
Rectangle {
    id: root

    // Opaque: the colour of the ground on which the content lies.
    required property color groundColor

    anchors.top: root.parent.top
    anchors.bottom: root.parent.bottom
    anchors.right: root.parent.right
    width: Theme.fadeWidth
    gradient: Gradient {
        orientation: Gradient.Horizontal
        GradientStop { position: 0; color: Qt.alpha(root.groundColor, 0) }
        GradientStop { position: 1; color: root.groundColor }
    }
}
