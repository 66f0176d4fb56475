pragma ComponentBehavior: Bound
import QtQuick
import Ospra.Controls
import Ospra.Theme

/// One jump of the sidebar: when it was, and below that its name, its age and a dot for each companion. A jump without
/// a date has its name only.
Item {
    id: root

    required property string title
    required property string name
    required property string age
    required property var dots

    Column {
        anchors.verticalCenter: parent.verticalCenter
        width: parent.width
        spacing: Theme.space2

        Label {
            width: parent.width
            text: root.title
            isTabular: true
            elide: Text.ElideRight
            Accessible.ignored: true
        }

        Row {
            width: parent.width
            visible: root.age !== ""
            spacing: Theme.space4

            Label {
                width: Math.min(Math.ceil(implicitWidth), parent.width - age.width - Theme.space4 - root.dots.length * (Theme.markerSizeSmall + Theme.space4))
                text: root.name
                textStyle: Theme.caption
                isTabular: true
                color: Theme.textSecondary
                elide: Text.ElideRight
                Accessible.ignored: true
            }

            Label {
                id: age

                text: "· " + root.age + (root.dots.length > 0 ? " ·" : "")
                textStyle: Theme.caption
                isTabular: true
                color: Theme.textSecondary
                Accessible.ignored: true
            }

            Repeater {
                model: root.dots

                JumperDot {
                    required property int modelData

                    y: age.height / 2 - height / 2
                    diameter: Theme.markerSizeSmall
                    jumperColor: modelData
                }
            }
        }
    }
}
