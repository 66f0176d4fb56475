pragma ComponentBehavior: Bound
import QtQuick
import Ospra.Controls
import Ospra.Theme
import Ospra.Workspace

/// Which colour stands for which jumper.
Row {
    id: root

    required property TracksModel tracks

    spacing: Theme.space8

    Repeater {
        model: root.tracks

        Row {
            id: entry

            required property string name
            required property int jumperColor

            spacing: Theme.space4

            JumperDot {
                anchors.verticalCenter: parent.verticalCenter
                jumperColor: entry.jumperColor
            }

            Label {
                text: entry.name
                textStyle: Theme.caption
            }
        }
    }
}
