pragma ComponentBehavior: Bound
import QtQuick
import Ospra.Theme

/// Eight strokes that turn while something loads. It shows only after a moment, so that what is quick does not flash.
Item {
    id: root

    property bool isRunning: true
    property color color: Theme.textSecondary
    // The stroke that is the brightest at the moment.
    property int phase: 0
    readonly property int strokes: 8

    implicitWidth: Theme.spinnerSize
    implicitHeight: Theme.spinnerSize
    opacity: 0
    visible: root.isRunning

    Accessible.role: Accessible.Animation
    Accessible.name: qsTr("Loading")

    SequentialAnimation {
        running: root.isRunning
        PropertyAction { target: root; property: "opacity"; value: 0 }
        PauseAnimation { duration: Theme.spinnerDelay }
        NumberAnimation { target: root; property: "opacity"; to: 1; duration: Theme.toggleDuration }
    }

    Timer {
        interval: 100
        repeat: true
        running: root.isRunning && root.opacity > 0 && Theme.toggleDuration > 0
        onTriggered: root.phase = (root.phase + 1) % root.strokes
    }

    Repeater {
        model: root.strokes

        Rectangle {
            id: stroke

            required property int index
            readonly property int age: (root.phase - stroke.index + root.strokes) % root.strokes

            x: (root.width - stroke.width) / 2
            width: root.width / 10
            height: root.height * 0.28
            radius: stroke.width / 2
            antialiasing: true
            color: root.color
            opacity: 1 - 0.85 * stroke.age / (root.strokes - 1)
            transform: Rotation {
                origin.x: stroke.width / 2
                origin.y: root.height / 2
                angle: stroke.index * 360 / root.strokes
            }
        }
    }
}
