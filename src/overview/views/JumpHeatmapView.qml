import QtQuick
import Ospra.Overview
import Ospra.Theme

/// The days with jumps as a grid of squares, one column a week.
Card {
    id: root

    required property OverviewState overview
    required property real cellSize
    required property real cellSpacing

    CardHeader {
        width: parent.width
        title: "Jump Activity"
        subtitle: root.overview.totalText
        readOut: viewport.isOverDay ? viewport.hoveredDayText : viewport.focusedDayText
        readOutColor: viewport.isOverDay && !viewport.hoveredDayHasJumps ? Theme.textSecondary : Theme.text
    }

    HeatmapViewport {
        id: viewport

        width: parent.width
        overview: root.overview
        cellSize: root.cellSize
        cellSpacing: root.cellSpacing
    }

    HeatmapLegend {
        cellSize: root.cellSize
    }
}
