import QtQuick
import Ospra.Controls
import Ospra.Workspace

/// The screen of one jump: the key numbers of each jumper on top, the charts below.
Item {
    id: root

    required property OspraModel source
    required property TracksModel tracks

    JumpStatsBars {
        id: bars

        width: root.width
        tracks: root.tracks
    }

    Divider {
        id: line

        y: bars.height
        width: root.width
    }

    JumpChartView {
        anchors.fill: parent
        anchors.topMargin: bars.height + line.height
        source: root.source
    }
}
