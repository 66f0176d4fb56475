pragma ComponentBehavior: Bound
import QtQuick
import Ospra.Controls
import Ospra.Theme
import Ospra.Workspace

/// One bar of key numbers for each track, the numbers of all below each other. Where the room is short they scroll
/// sideways together.
Rectangle {
    id: root

    required property TracksModel tracks
    readonly property bool showsNames: root.tracks.count > 1
    readonly property list<real> captionWidths: root.widestValues(root.tracks.values, metrics)
    readonly property real nameWidth: root.widestName(root.tracks.names)
    // One size smaller where that lets all numbers show.
    readonly property list<real> tightWidths: root.widestValues(root.tracks.values, tightMetrics)
    readonly property bool isTight: root.needed(root.captionWidths, metrics) > root.width && root.needed(root.tightWidths, tightMetrics) <= root.width
    readonly property list<real> valueWidths: root.isTight ? root.tightWidths : root.captionWidths

    /// For each column the width of its widest number.
    function widestValues(values: var, font: FontMetrics): list<real> {
        return Array.from(root.tracks.labels).map((label, column) => Math.ceil(Math.max(0, ...values.map(row => font.advanceWidth(row[column] ?? "")))));
    }

    /// What a bar takes with numbers of these widths.
    function needed(widths: list<real>, font: FontMetrics): real {
        const separator = font.advanceWidth("·") + 2 * Theme.space6;
        const items = widths.map((width, column) => separator + font.advanceWidth(root.tracks.labels[column]) + Theme.space4 + width);
        return items.reduce((sum, width) => sum + width, 2 * Theme.padding + (root.showsNames ? root.nameWidth : -separator));
    }

    function widestName(names: var): real {
        const widest = Math.max(0, ...names.map(name => nameMetrics.advanceWidth(name)));
        return Math.min(Math.max(80, Math.ceil(widest) + Theme.markerSize + Theme.space4), Theme.trackNameMaximum);
    }

    implicitHeight: root.tracks.count * Theme.barRowHeight
    color: Theme.barMaterial

    FontMetrics {
        id: metrics

        font.family: Theme.tabularFontFamily
        font.pointSize: Theme.caption.pointSize
        font.weight: Font.Medium
    }

    FontMetrics {
        id: tightMetrics

        font.family: Theme.tabularFontFamily
        font.pointSize: Theme.caption2.pointSize
        font.weight: Font.Medium
    }

    FontMetrics {
        id: nameMetrics

        font.family: Theme.fontFamily
        font.pointSize: Theme.caption.pointSize
        font.weight: Font.Medium
    }

    Flickable {
        id: flickable

        anchors.fill: parent
        contentWidth: bars.width
        contentHeight: root.height
        flickableDirection: Flickable.HorizontalFlick
        boundsBehavior: Flickable.StopAtBounds
        interactive: contentWidth > width
        clip: true

        Column {
            id: bars

            Repeater {
                model: root.tracks

                JumpStatsBar {
                    labels: root.tracks.labels
                    valueWidths: root.valueWidths
                    nameWidth: root.nameWidth
                    textStyle: root.isTight ? Theme.caption2 : Theme.caption
                    showName: root.showsNames
                    onToggled: root.tracks.toggleVisibility(index)
                }
            }
        }
    }

    FadeEdge {
        visible: flickable.contentWidth - flickable.contentX > flickable.width + 1
        groundColor: root.color
    }
}
