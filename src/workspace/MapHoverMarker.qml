import QtQuick
import Ospra.Controls
import Ospra.Theme
import Ospra.TileMap

/// Where a jumper was at the moment under the charts' cursor: the name and, below it, a dot.
MapAnchor {
    id: root

    required property string name
    required property color markerColor
    required property mapPlace markerPlace

    anchorPoint: Qt.point(0.5, 1)
    place: root.markerPlace
    width: Math.max(words.width, dot.width)
    height: words.height + Theme.space2 + dot.height
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

        x: (root.width - width) / 2
        y: words.height + Theme.space2
        width: Theme.mapDot
        height: Theme.mapDot

        // The outline runs along the edge, half of it outside.
        Rectangle {
            anchors.fill: parent
            anchors.margins: -1
            radius: width / 2
            color: root.markerColor
            border.width: 2
            border.color: Theme.mapDotEdge
        }
    }
}
