pragma ComponentBehavior: Bound
import QtQuick
import Ospra.Controls
import Ospra.Theme

/// The line above a plot: its colour, title, the time under the cursor, what each jumper's line reads there, and the
/// unit. Where the room is short the unit goes first, then the title is cut, then the tail of the readings fades.
Item {
    id: root

    required property string title
    required property int rowColor
    required property string unit
    required property string timeLabel
    required property list<string> names
    required property list<int> colors
    required property list<string> values
    required property color groundColor ///< below the header, opaque
    readonly property real room: root.width - 2 * Theme.padding - dot.width - Theme.space6
    readonly property real readingsWidth: (time.visible ? time.implicitWidth + Theme.space6 : 0) + (readings.width > 0 ? readings.width + Theme.space10 : 0)
    readonly property bool showsUnit: titleText.implicitWidth + root.readingsWidth + Theme.space12 + unitText.implicitWidth <= root.room

    implicitHeight: Theme.scaled(20)

    Rectangle {
        id: dot

        x: Theme.padding
        anchors.verticalCenter: parent.verticalCenter
        width: Theme.markerSize
        height: Theme.markerSize
        radius: width / 2
        color: Theme.named(root.rowColor)
    }

    Label {
        id: titleText

        anchors.left: dot.right
        anchors.leftMargin: Theme.space6
        anchors.verticalCenter: parent.verticalCenter
        width: Math.max(0, Math.min(Math.ceil(implicitWidth), root.room - root.readingsWidth))
        visible: width > Theme.space12
        text: root.title
        textStyle: Theme.caption
        color: Theme.textSecondary
        elide: Text.ElideRight
        Accessible.ignored: true
    }

    Item {
        id: readout

        anchors.left: titleText.visible ? titleText.right : dot.right
        anchors.right: parent.right
        anchors.rightMargin: Theme.padding
        height: parent.height
        clip: true

        Label {
            id: time

            x: Theme.space6
            anchors.verticalCenter: parent.verticalCenter
            visible: root.timeLabel !== ""
            text: root.timeLabel
            textStyle: Theme.caption
            font.weight: Font.DemiBold
            isTabular: true
            color: Theme.textSecondary
        }

        Row {
            id: readings

            x: (time.visible ? time.x + time.width : 0) + Theme.space10
            anchors.verticalCenter: parent.verticalCenter
            spacing: Theme.space10

            Repeater {
                model: root.names.length

                ChartReading {
                    required property int index

                    name: root.names[index] ?? ""
                    nameColor: Theme.named(root.colors[index] ?? 0)
                    value: root.values[index] ?? ""
                }
            }
        }

        FadeEdge {
            visible: readings.x + readings.width > readout.width
            groundColor: root.groundColor
        }
    }

    Label {
        id: unitText

        anchors.right: parent.right
        anchors.rightMargin: Theme.padding
        anchors.verticalCenter: parent.verticalCenter
        visible: root.showsUnit
        text: root.unit
        textStyle: Theme.caption2
        color: Theme.textTertiary
    }
}
