import QtQuick
import QtQuick.Templates as T
import Ospra.Controls
import Ospra.Overview
import Ospra.Theme

/// The screen that sums up all jumps.
Item {
    id: root

    required property OverviewState overview
    readonly property bool isWindowActive: Window.active
    readonly property Item focusItem: Window.activeFocusItem
    readonly property int range: root.overview.rangeIndex

    /// Scrolls what the keyboard went to into view.
    function reveal(item: Item) {
        const top = item.mapToItem(column, 0, 0).y;
        const bottom = top + item.height + 2 * column.y;
        page.contentY = Math.max(Math.min(page.contentY, top), bottom - page.height, 0);
    }

    function isInside(item: Item): bool {
        while (item && item !== column)
            item = item.parent;
        return item === column;
    }

    /// Gives the keys back to the window once nothing here is to be seen.
    function dropFocus() {
        if (root.isInside(root.focusItem))
            root.focusItem.focus = false;
    }

    // Today is another day after a night with the program open.
    onIsWindowActiveChanged: if (root.isWindowActive && root.visible) root.overview.refresh()
    onVisibleChanged: root.visible ? root.overview.refresh() : root.dropFocus()
    onFocusItemChanged: if (root.visible && root.isInside(root.focusItem)) root.reveal(root.focusItem)
    onRangeChanged: rangeChange.restart()

    EmptyState {
        anchors.fill: parent
        visible: !root.overview.hasJumps
        icon: "overview"
        title: "No Jump Data"
        description: "Open a folder containing GPS data files to see jump activity."
    }

    Flickable {
        id: page

        anchors.fill: parent
        visible: root.overview.hasJumps
        clip: true
        contentWidth: page.width
        contentHeight: column.height + 2 * Theme.padding
        flickableDirection: Flickable.VerticalFlick
        boundsBehavior: Flickable.StopAtBounds

        Accessible.role: Accessible.Pane
        Accessible.name: "Overview"
        T.ScrollBar.vertical: ScrollBar { }

        Column {
            id: column

            x: Theme.padding
            y: Theme.padding
            width: page.width - 2 * Theme.padding
            spacing: Theme.space14

            OverviewControls {
                width: parent.width
                overview: root.overview
                onClearDay: {
                    dayFold.isAnimated = false;
                    root.overview.clearDay();
                    dayFold.isAnimated = true;
                }
            }

            OverviewKpiGrid {
                width: parent.width
                overview: root.overview
            }

            Column {
                id: activity

                width: parent.width

                Fold {
                    width: parent.width
                    isOpen: root.overview.showsHeatmap
                    gap: Theme.space14
                    duration: Theme.modeDuration

                    JumpHeatmapView {
                        width: parent.width
                        overview: root.overview
                        cellSize: 12
                        cellSpacing: 2
                    }
                }

                Fold {
                    id: dayFold

                    width: parent.width
                    isOpen: root.overview.showsHeatmap && root.overview.hasSelectedDay
                    gap: Theme.space14
                    duration: Theme.modeDuration

                    OverviewJumpListCard {
                        width: parent.width
                        title: "Selected Day"
                        subtitle: root.overview.selectedDayText
                        jumps: root.overview.selectedDayJumps
                        openness: dayFold.openness
                        onOpened: row => root.overview.openSelectedDayJump(row)
                    }
                }

                Fold {
                    id: statsFold

                    width: parent.width
                    isOpen: !root.overview.showsHeatmap
                    gap: Theme.space14
                    duration: Theme.modeDuration

                    OverviewStatsView {
                        width: parent.width
                        monthlyStats: root.overview.months
                        openness: statsFold.openness
                    }
                }

                OverviewJumpListCard {
                    width: parent.width
                    title: "Recent Jumps"
                    subtitle: "Quick open"
                    jumps: root.overview.recentJumps
                    onOpened: row => root.overview.openRecentJump(row)
                }
            }
        }
    }

    NumberAnimation {
        id: rangeChange

        target: activity
        property: "opacity"
        from: 0.4
        to: 1
        duration: Theme.rangeDuration
        easing.type: Easing.InOutQuad
    }
}
