import QtQuick
import Ospra.Theme

/// The coloured dot that marks a jumper.
Rectangle {
    id: root

    required property int jumperColor // a NamedColor
    property real diameter: Theme.markerSize

    implicitWidth: root.diameter
    implicitHeight: root.diameter
    radius: root.diameter / 2
    color: Theme.named(root.jumperColor)
    border.width: Theme.isDark ? 0 : Theme.lineWidth
    border.color: Theme.dotRing
}
