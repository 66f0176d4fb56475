import QtQuick
import Ospra.Controls
import Ospra.Theme
import Ospra.Workspace

/// The line above a plot: its colour, title, the time under the cursor, what each jumper's line reads there, and the
/// unit. Where the room is short the unit goes first, then the title is cut, then the tail of the readings fades.
Item {
    id: root

    required property ChartRowsModel rows
    required property int row
    required property string title
    required property int rowColor
    required property string unit
    required property bool showsTime
    required property color groundColor ///< below the header, opaque
    readonly property alias spokenReadings: readout.spokenReadings
    readonly property real room: root.width - 2 * Theme.padding - dot.width - Theme.space6
    readonly property bool showsUnit: titleText.implicitWidth + readout.contentWidth + Theme.space12 + unitText.implicitWidth <= root.room

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
        width: Math.max(0, Math.min(Math.ceil(implicitWidth), root.room - readout.contentWidth))
        visible: width > Theme.space12
        text: root.title
        textStyle: Theme.caption
        color: Theme.textSecondary
        elide: Text.ElideRight
        Accessible.ignored: true
    }

    ChartReadout {
        id: readout

        anchors.left: titleText.visible ? titleText.right : dot.right
        anchors.right: parent.right
        anchors.rightMargin: Theme.padding
        height: parent.height
        rows: root.rows
        row: root.row
        showsTime: root.showsTime
        numberFont: Theme.caption.tabularFont
        nameFont: Theme.caption2.font
        timeColor: Theme.textSecondary
        valueColor: Theme.text
        lineTop: titleText.y + Theme.caption.rise
        timeGap: Theme.space6
        readingGap: Theme.space10
        valueGap: Theme.space4
        nameMaximum: Theme.readingNameMaximum
        Accessible.role: Accessible.StaticText
        Accessible.name: readout.timeLabel
        Accessible.ignored: readout.timeLabel === ""

        FadeEdge {
            visible: readout.contentWidth > readout.width
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
