pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Templates as T
import Ospra.Theme

/// The sunken strip on which the options of a segmented control stand.
Rectangle {
    id: root

    required property list<string> options
    required property int currentIndex
    required property T.Control control

    signal activated(index: int)

    implicitWidth: segments.width + 2 * Theme.space2
    implicitHeight: Theme.segmentHeight + 2 * Theme.space2
    radius: Theme.radiusControl + Theme.space2
    color: Theme.control
    border.color: Theme.controlEdge
    border.width: Theme.isHighContrast ? Theme.lineWidth : 0

    Row {
        id: segments

        x: Theme.space2
        y: Theme.space2

        Repeater {
            model: root.options

            Segment {
                isChosen: index === root.currentIndex
                onClicked: root.activated(index)
            }
        }
    }

    FocusRing {
        control: root.control
        controlRadius: root.radius
    }
}
