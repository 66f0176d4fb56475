pragma ComponentBehavior: Bound
import QtQuick
import Ospra.Controls
import Ospra.Theme

/// The colours of the heatmap, from few jumps to many.
Row {
    id: root

    required property real cellSize

    spacing: Theme.space4

    Label {
        text: "Less"
        textStyle: Theme.caption2
        color: Theme.textSecondary
    }

    Repeater {
        model: Theme.heatLevels.length

        Rectangle {
            required property int index

            y: Math.round((root.height - height) / 2)
            width: root.cellSize
            height: root.cellSize
            radius: Theme.radiusCell
            color: Theme.heatLevels[index]
            border.color: Theme.heatEmptyEdge
            border.width: index === 0 && Theme.heatEmptyEdge.a > 0 ? Theme.lineWidth : 0
        }
    }

    Label {
        text: "More"
        textStyle: Theme.caption2
        color: Theme.textSecondary
    }
}
