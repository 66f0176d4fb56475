pragma ComponentBehavior: Bound
import QtQuick
import Ospra.Theme
import Ospra.Workspace

/// The key numbers of one track. With several tracks its name comes first, as the switch that hides the track.
Item {
    id: root

    required property int index
    required property string name
    required property int jumperColor
    required property bool isHidden
    required property string hint
    required property list<string> values
    required property list<string> labels
    required property list<real> valueWidths
    required property real nameWidth
    required property bool showName
    required property TextStyle textStyle

    // The number that Tab stops at; the arrows go from number to number.
    property int tabStop: 0

    signal toggled

    function move(by: int) {
        const from = numbers.itemAt(root.tabStop) as StatsItem;
        const to = numbers.itemAt(root.tabStop + by) as StatsItem;
        if (from && from.isFocused && to)
            to.takeFocus();
    }

    implicitWidth: row.width + 2 * Theme.padding
    implicitHeight: Theme.barRowHeight

    Keys.onLeftPressed: root.move(-1)
    Keys.onRightPressed: root.move(1)

    Row {
        id: row

        x: Theme.padding
        height: parent.height

        TrackNameButton {
            anchors.verticalCenter: parent.verticalCenter
            width: root.nameWidth
            visible: root.showName
            name: root.name
            jumperColor: root.jumperColor
            isHidden: root.isHidden
            toolTip: root.hint
            onClicked: root.toggled()
        }

        Repeater {
            id: numbers

            model: root.values.length

            StatsItem {
                required property int index

                y: (Theme.barRowHeight - height) / 2
                opacity: root.isHidden ? 0.3 : 1
                hasSeparator: root.showName || index > 0
                label: root.labels[index]
                value: root.values[index] ?? ""
                textStyle: root.textStyle
                valueWidth: root.valueWidths[index] ?? 0
                isTabStop: index === root.tabStop
                onIsFocusedChanged: if (isFocused) root.tabStop = index
            }
        }
    }
}
