import QtQuick
import QtQuick.Templates as T
import Ospra.Controls
import Ospra.Theme
import Ospra.Workspace

/// The screen of one jump: the key numbers of each jumper on top, the charts and the map side by side below.
Item {
    id: root

    required property OspraModel source
    required property TracksModel tracks
    property real chartsShare: 0.62 // of the width; the user's once the line has been dragged

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

    SplitView {
        id: split

        readonly property real greatestCharts: split.width - Theme.lineWidth - Theme.mapMinimum

        anchors.fill: parent
        anchors.topMargin: bars.height + line.height
        onResizingChanged: if (!split.resizing && split.width > 0) root.chartsShare = charts.width / split.width

        JumpChartView {
            id: charts

            objectName: "charts"
            T.SplitView.preferredWidth: Math.round(Math.max(Theme.chartsMinimum, Math.min(root.chartsShare * split.width, split.greatestCharts)))
            T.SplitView.minimumWidth: Theme.chartsMinimum
            source: root.source
        }

        FlightPathMapView {
            T.SplitView.fillWidth: true
            T.SplitView.minimumWidth: Theme.mapMinimum
            source: root.source
        }
    }
}
