import QtQuick
import Ospra.Controls
import Ospra.Overview
import Ospra.Theme

/// The heatmap's grid in a view that scrolls sideways and opens with the oldest week.
Item {
    id: root

    required property OverviewState overview
    property alias cellSize: heatmap.cellSize
    property alias cellSpacing: heatmap.cellSpacing
    readonly property alias isOverDay: heatmap.isOverDay
    readonly property alias hoveredDayHasJumps: heatmap.hoveredDayHasJumps
    readonly property alias hoveredDayText: heatmap.hoveredDayText
    readonly property alias focusedDayText: heatmap.focusedDayText

    /// Scrolls by so many pixels, no further than the ends. @return false at the end
    function scrollBy(distance: real): bool {
        const before = scroller.contentX;
        scroller.contentX = Math.max(0, Math.min(scroller.contentWidth - scroller.width, before + distance));
        return scroller.contentX !== before;
    }

    implicitHeight: heatmap.implicitHeight

    HeatmapItem {
        id: heatmap

        anchors.fill: parent
        overview: root.overview
        contentX: scroller.contentX
        onRevealRequested: contentX => scroller.contentX = contentX

        Accessible.role: Accessible.Table
        Accessible.name: heatmap.focusedDayText !== "" ? heatmap.focusedDayText : "Jump Activity, " + root.overview.totalText
        Accessible.description: "One square a day. The arrow keys move from day to day, Space selects a day."
        Accessible.focusable: true
        Accessible.onPressAction: heatmap.pressFocusedDay()

        look: HeatmapLook {
            levels: Theme.heatLevels
            emptyEdge: Theme.heatEmptyEdge
            selected: Theme.heatSelected
            selectedRing: Theme.heatSelectedRing
            selectedRingWidth: Theme.heatSelectedRingWidth
            focusRing: Theme.focusRing
            focusRingWidth: Theme.focusRingWidth
            monthLine: Theme.monthLine
            monthLineUnder: Theme.monthLineUnder
            bar: Qt.alpha(Theme.green, 0.75)
            text: Theme.textSecondary
            monthFont: Theme.caption.font
            monthHeight: Theme.caption.lineHeight
            trendTitleHeight: Theme.caption2.lineHeight
            cellRadius: Theme.radiusCell
        }
    }

    Item {
        y: heatmap.trendTop
        width: root.width
        height: title.height
        clip: true

        Label {
            id: title

            x: -scroller.contentX
            visible: scroller.contentX < width
            text: "Weekly Trend"
            textStyle: Theme.caption2
            color: Theme.textSecondary
        }
    }

    // Scrolls nothing but itself: in a grid of centuries its content would lie too far out to be drawn exactly.
    Flickable {
        id: scroller

        anchors.fill: parent
        contentWidth: Math.max(scroller.width, heatmap.contentWidth)
        contentHeight: scroller.height
        flickableDirection: Flickable.HorizontalFlick
        boundsBehavior: Flickable.StopAtBounds
        interactive: scroller.contentWidth > scroller.width
        onContentWidthChanged: root.scrollBy(0)
        onWidthChanged: root.scrollBy(0)

        MouseArea {
            x: scroller.contentX
            width: scroller.width
            height: scroller.height
            hoverEnabled: true
            cursorShape: heatmap.isOverDay ? Qt.PointingHandCursor : Qt.ArrowCursor
            onPositionChanged: mouse => heatmap.hoverAt(mouse.x, mouse.y)
            onExited: heatmap.endHover()
            onClicked: mouse => heatmap.clickAt(mouse.x, mouse.y)
            // A wheel that turns up and down is the only one that most mice have.
            onWheel: wheel => wheel.accepted = wheel.angleDelta.x === 0 && root.scrollBy(-wheel.angleDelta.y)
        }
    }
}
