import QtQuick
import Ospra.Controls
import Ospra.Theme
import Ospra.TileMap

/// Where a jumper was at the moment under the charts' cursor: the name and, below it, a dot. It is drawn once, as one
/// picture that moves with the cursor: its parts one by one would cost a hover more than all charts.
MapAnchor {
    id: root

    required property string name
    required property color markerColor
    required property mapPlace markerPlace

    readonly property real pixelRatio: Screen.devicePixelRatio
    // The picture is whole device pixels large, so that it is shown pixel for pixel.
    readonly property int columns: Math.ceil(Math.max(words.width, dot.width + 2 * dot.outline) * root.pixelRatio)
    readonly property int rows: Math.ceil((dot.y + dot.height + dot.outline) * root.pixelRatio)

    anchorPoint: Qt.point(0.5, (dot.y + dot.height) / root.height)
    place: root.markerPlace
    width: root.columns / root.pixelRatio
    height: root.rows / root.pixelRatio
    // The software renderer shows no such picture where a logical pixel is more than one, and draws its parts as fast.
    layer.enabled: GraphicsInfo.api !== GraphicsInfo.Software
    layer.textureSize: Qt.size(root.columns, root.rows) // qmllint disable
    Accessible.role: Accessible.StaticText
    Accessible.name: root.name

    Rectangle {
        x: words.x
        width: words.width
        height: words.height
        radius: Theme.radiusMarker
        color: Qt.alpha(root.markerColor, 0.85)
    }

    Label {
        id: words

        x: (root.width - width) / 2
        leftPadding: Theme.space4
        rightPadding: Theme.space4
        topPadding: 1 + textStyle.rise
        bottomPadding: 1 - textStyle.rise
        text: root.name
        textStyle: Theme.caption2
        font.weight: Font.DemiBold
        color: Theme.mapText
        style: Text.Outline
        styleColor: Theme.mapHalo
        Accessible.ignored: true
    }

    Item {
        id: dot

        readonly property real outline: 1 // beyond the edge

        x: (root.width - width) / 2
        y: words.height + Theme.space2
        width: Theme.mapDot
        height: Theme.mapDot

        // The outline runs along the edge, half of it outside.
        Rectangle {
            anchors.fill: parent
            anchors.margins: -dot.outline
            radius: width / 2
            color: root.markerColor
            border.width: 2
            border.color: Theme.mapDotEdge
        }
    }
}
