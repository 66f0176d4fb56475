pragma ComponentBehavior: Bound

import QtQuick
import Ospra.Plot

/// A plot with its y labels at the left, grid lines behind it, the letters of its markers above, and the overlay.
Item {
    id: root

    property alias content: plotItem.content
    property alias cursorSeconds: overlay.cursorSeconds
    property alias cursorColor: overlay.cursorColor
    property alias dots: overlay.dots
    property alias dragStart: overlay.dragStart
    property alias dragEnd: overlay.dragEnd
    property alias dragColor: overlay.dragColor
    property alias rasterCount: plotItem.rasterCount
    readonly property alias overlay: overlay
    required property color gridColor
    required property color labelColor
    required property font labelFont
    property real axisWidth: 40 ///< of the frame in which the labels stand, trailing aligned
    property real axisGap: 5 ///< from the labels to the plot
    property real stripHeight: 12 ///< above the plot, for the letters
    property real bottomMargin: 5 ///< below the plot, for the lower half of the lowest label
    readonly property real plotLeft: plotItem.x
    readonly property real plotTop: plotItem.y
    readonly property real plotWidth: plotItem.width
    readonly property real plotHeight: plotItem.height
    readonly property real pixel: 1 / Screen.devicePixelRatio

    /// The time at a position in this item; NaN where there is none.
    function secondsAt(x: real): real {
        return plotItem.secondsAt(x - plotItem.x);
    }

    /// The position in this item for a time.
    function xAt(seconds: real): real {
        return plotItem.x + plotItem.xAt(seconds);
    }

    /// Whether a position in this item lies in the plot's width, ends included.
    function containsX(x: real): bool {
        return x >= plotItem.x && x <= plotItem.x + plotItem.width;
    }

    /// The nearest position in whole device pixels.
    function aligned(position: real): real {
        return Math.floor(position / root.pixel + 0.5) * root.pixel;
    }

    FontMetrics {
        id: labelMetrics

        font: root.labelFont
    }

    // Ticks and letters that are not needed are hidden and kept: a repeater makes all of its items anew when their
    // number changes, and a zoom changes it often.
    Repeater {
        id: ticks

        model: 0

        Item {
            id: tick

            required property int index

            visible: tick.index < plotItem.tickPositions.length

            y: plotItem.y + (plotItem.tickPositions[tick.index] ?? 0)
            width: root.width

            Rectangle {
                x: plotItem.x
                y: root.aligned(tick.y - 0.5) - tick.y
                width: plotItem.width
                height: Math.max(1, Math.round(1 / root.pixel)) * root.pixel
                color: root.gridColor
            }

            Text {
                x: root.axisWidth - width
                y: root.aligned(tick.y - height / 2) - tick.y
                text: plotItem.tickLabels[tick.index] ?? ""
                font: root.labelFont
                color: root.labelColor
                textFormat: Text.PlainText
                visible: width <= root.axisWidth + root.axisGap
            }
        }
    }

    PlotItem {
        id: plotItem

        x: root.axisWidth + root.axisGap
        y: root.stripHeight
        width: Math.max(0, root.width - plotItem.x)
        height: Math.max(0, root.height - root.stripHeight - root.bottomMargin)
        letterFont: root.labelFont
        tickSpacing: Math.max(27, 2 * labelMetrics.height)
        onAxisChanged: ticks.model = Math.max(ticks.count, plotItem.tickPositions.length)
        onLettersChanged: letters.model = Math.max(letters.count, plotItem.letterPositions.length)
        Component.onCompleted: {
            ticks.model = plotItem.tickPositions.length;
            letters.model = plotItem.letterPositions.length;
        }
    }

    Repeater {
        id: letters

        model: 0

        Text {
            id: letter

            required property int index

            visible: letter.index < plotItem.letterPositions.length
            x: plotItem.x + (plotItem.letterPositions[letter.index] ?? 0)
            y: root.stripHeight + 1 - letter.height
            text: plotItem.letterTexts[letter.index] ?? ""
            color: plotItem.letterColors[letter.index] ?? "transparent"
            font: root.labelFont
            textFormat: Text.PlainText
        }
    }

    PlotOverlay {
        id: overlay

        anchors.fill: plotItem
        plot: plotItem
    }
}
