import QtQuick
import Ospra.Plot
import Ospra.Theme
import Ospra.Workspace

/// One row of the charts: header and plot. Only the overlay follows the pointer; the lines are drawn when they change.
Item {
    id: root

    required property ChartRowsModel rows
    required property int index
    required property string title
    required property int rowColor
    required property string unit
    required property bool showsTime
    required property var content
    required property real dragStart
    required property real dragEnd
    readonly property bool isDragged: drag.active
    readonly property color hoverColor: Qt.alpha(Theme.text, 0.04)

    signal dragged(start: real, end: real)
    signal dragFinished

    /// The time at a position of the plot, no further than its ends.
    function secondsWithin(x: real): real {
        return plot.secondsAt(Math.max(plot.plotLeft, Math.min(x, plot.plotLeft + plot.plotWidth)));
    }

    Accessible.role: Accessible.Chart
    Accessible.name: root.title
    Accessible.description: header.spokenReadings

    Rectangle {
        anchors.fill: parent
        anchors.leftMargin: Theme.space4
        anchors.rightMargin: Theme.space4
        radius: Theme.radiusControl
        color: rowHover.hovered ? root.hoverColor : "transparent"
    }

    HoverHandler {
        id: rowHover
    }

    ChartRowHeader {
        id: header

        y: Theme.space2
        width: root.width
        rows: root.rows
        row: root.index
        title: root.title
        rowColor: root.rowColor
        unit: root.unit
        showsTime: root.showsTime
        groundColor: rowHover.hovered ? Qt.tint(Theme.content, root.hoverColor) : Theme.content
    }

    PlotView {
        id: plot

        anchors.fill: parent
        anchors.topMargin: header.y + header.height + Theme.space2
        anchors.leftMargin: Theme.space8
        anchors.rightMargin: Theme.space8
        anchors.bottomMargin: Theme.space2
        content: root.content
        gridColor: Theme.gridLine
        labelColor: Theme.textTertiary
        labelFont: Theme.caption2.tabularFont
        cursorColor: Qt.alpha(Theme.textSecondary, 0.35)
        dragStart: root.dragStart
        dragEnd: root.dragEnd
        dragColor: Qt.alpha(Theme.blue, 0.15)

        HoverHandler {
            id: hover

            property real lastSeconds: NaN // that the pointer has stood at
            readonly property bool isOverPlot: hover.hovered && plot.containsX(hover.point.position.x)

            // A pointer that rests is reported again with frames; the keys may have moved the cursor on.
            function follow() {
                const seconds = hover.isOverPlot ? plot.secondsAt(hover.point.position.x) : NaN;
                if (isNaN(seconds) || seconds === hover.lastSeconds)
                    return;
                hover.lastSeconds = seconds;
                root.rows.hoverAt(seconds);
            }

            onPointChanged: hover.follow()
            onIsOverPlotChanged: {
                hover.lastSeconds = NaN;
                hover.isOverPlot ? hover.follow() : root.rows.hoverNothing();
            }
        }

        DragHandler {
            id: drag

            target: null
            dragThreshold: 4
            acceptedDevices: PointerDevice.Mouse | PointerDevice.TouchPad | PointerDevice.Stylus
            grabPermissions: PointerHandler.CanTakeOverFromAnything
            // The move that begins a drag is part of it: a quick one has no other.
            onCentroidChanged: drag.report()
            onActiveChanged: drag.active ? drag.report() : root.dragFinished()

            function report() {
                if (!drag.active)
                    return;
                const start = root.secondsWithin(drag.centroid.pressPosition.x);
                const end = root.secondsWithin(drag.centroid.position.x);
                if (!isNaN(start) && !isNaN(end))
                    root.dragged(start, end);
            }
        }
    }

    ChartRowCursor {
        rows: root.rows
        row: root.index
        overlay: plot.overlay
    }
}
