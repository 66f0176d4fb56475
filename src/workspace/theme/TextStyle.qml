import QtQuick
import Ospra.Desktop

/// One size of text with its line and weight, scaled with the desktop's font.
QtObject {
    id: root

    // At a desktop font of 13 pixels.
    required property real size
    required property real line
    property int weight: Font.Normal

    readonly property real pixelSize: Math.max(9, root.size * Appearance.fontSize / 13)
    readonly property real pointSize: root.pixelSize * Appearance.pointsPerPixel
    readonly property int lineHeight: Math.round(root.line * root.pixelSize / root.size)
    // What the line has above and below the glyphs' own height, and the half of it that stands above them; negative
    // where the line is lower than the glyphs.
    readonly property real leading: root.lineHeight - root.metrics.height
    readonly property int rise: Math.floor(root.leading / 2)
    readonly property font font: root.metrics.font
    // With digits that are all equally wide.
    readonly property font tabularFont: root.tabularMetrics.font

    // Qt.font() would cut the fraction of a size in points.
    readonly property FontMetrics metrics: FontMetrics {
        font.family: Appearance.fontFamily
        font.pointSize: root.pointSize
        font.weight: root.weight
    }

    readonly property FontMetrics tabularMetrics: FontMetrics {
        font.family: Appearance.tabularFontFamily
        font.pointSize: root.pointSize
        font.weight: root.weight
    }
}
