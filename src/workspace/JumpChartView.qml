pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Templates as T
import Ospra.Controls
import Ospra.Theme
import Ospra.Workspace

/// The column of charts, one row for each series that is on, all over the same time. A cursor and a selection in one
/// row are in all of them.
Item {
    id: root

    required property OspraModel source
    property real dragStart: NaN
    property real dragEnd: NaN

    /// Ends a drag without a zoom.
    function clearDrag() {
        root.dragStart = NaN;
        root.dragEnd = NaN;
    }

    // What is dragged over is gone while another jump is loaded.
    onVisibleChanged: if (!root.visible) root.clearDrag()

    EmptyState {
        anchors.fill: parent
        visible: !chartRows.hasSeries
        icon: "chart-line"
        title: "No Data Series Selected"
        description: "Use the Data Series toolbar menu to select what to display."
    }

    Flickable {
        id: flickable

        readonly property real rowHeight: Math.max(Theme.chartRowMinimum, Math.floor((height - 2 * Theme.space4) / Math.max(1, repeater.count)))

        anchors.fill: parent
        visible: chartRows.hasSeries
        contentHeight: column.height
        boundsBehavior: Flickable.StopAtBounds
        clip: true
        T.ScrollBar.vertical: ScrollBar { }

        Column {
            id: column

            width: flickable.width
            topPadding: Theme.space4
            bottomPadding: Theme.space4

            Repeater {
                id: repeater

                model: chartRows
                onItemRemoved: (index, item) => { if ((item as ChartRowView)?.isDragged) root.clearDrag(); }

                ChartRowView {
                    width: column.width
                    height: flickable.rowHeight
                    rows: chartRows
                    dragStart: root.dragStart
                    dragEnd: root.dragEnd
                    onDragged: (start, end) => {
                        if (!root.visible)
                            return;
                        root.dragStart = start;
                        root.dragEnd = end;
                    }
                    onDragFinished: {
                        if (!isNaN(root.dragStart) && !isNaN(root.dragEnd))
                            root.source.zoomToDrag(root.dragStart, root.dragEnd);
                        root.clearDrag();
                    }
                }
            }
        }
    }

    ChartRowsModel {
        id: chartRows

        source: root.source
        palette: Theme.palette
        firstOnScreen: Math.floor((flickable.contentY - column.topPadding) / flickable.rowHeight)
        lastOnScreen: Math.floor((flickable.contentY + flickable.height - column.topPadding) / flickable.rowHeight)
    }
}
