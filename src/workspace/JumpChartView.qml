pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Templates as T
import Ospra.Controls
import Ospra.Theme
import Ospra.Workspace

/// The column of charts, one row for each series that is on, all over the same time. A cursor and a selection in one
/// row are in all of them. Both can be moved by keys, from where the pointer left them. No control of the toolkit, which
/// would not keep the role.
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

    /// Zooms to what is selected, if anything is.
    function zoomToSelection() {
        if (!isNaN(root.dragStart) && !isNaN(root.dragEnd))
            root.source.zoomToDrag(root.dragStart, root.dragEnd);
        root.clearDrag();
    }

    enabled: chartRows.hasSeries // without charts there is nothing for the keys
    activeFocusOnTab: true
    Accessible.role: Accessible.Grouping
    Accessible.name: qsTr("Charts")
    Accessible.focusable: true
    Keys.onPressed: event => event.accepted = keys.press(event.key, event.modifiers)
    onActiveFocusChanged: if (!root.activeFocus) root.clearDrag()
    // What is dragged over is gone while another jump is loaded.
    onVisibleChanged: if (!root.visible) root.clearDrag()

    TapHandler {
        onTapped: {
            root.forceActiveFocus(Qt.MouseFocusReason);
            ring.takeReason(Qt.MouseFocusReason);
        }
    }

    Connections {
        target: root.source

        function onZoomChanged() {
            root.clearDrag();
        }
    }

    ChartKeys {
        id: keys

        rows: chartRows
        selectionStart: root.dragStart
        selectionEnd: root.dragEnd
        onSelected: (start, end) => {
            root.dragStart = start;
            root.dragEnd = end;
        }
        onZoomed: root.zoomToSelection()
        onDropped: root.clearDrag()
        onScrolled: pages => flickable.contentY = Math.max(0, Math.min(flickable.contentY + pages * flickable.height, flickable.contentHeight - flickable.height))
    }

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
                    onDragFinished: root.zoomToSelection()
                }
            }
        }
    }

    FocusRing {
        id: ring

        control: root
        anchors.margins: 0
        controlRadius: -reach
    }

    ChartRowsModel {
        id: chartRows

        source: root.source
        palette: Theme.palette
        firstOnScreen: Math.floor((flickable.contentY - column.topPadding) / flickable.rowHeight)
        lastOnScreen: Math.floor((flickable.contentY + flickable.height - column.topPadding) / flickable.rowHeight)
    }
}
