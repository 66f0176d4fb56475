import QtQuick
import Ospra.Controls
import Ospra.Theme
import Ospra.TileMap

/// Words that stand on a coordinate.
MapAnchor {
    id: root

    property alias text: words.text

    anchorPoint: Qt.point(0.5, 1)
    width: words.width
    height: words.height
    Accessible.role: Accessible.StaticText
    Accessible.name: root.text

    Rectangle {
        anchors.fill: parent
        radius: Theme.radiusLabel
        color: Theme.mapCaptionGround
    }

    Label {
        id: words

        leftPadding: Theme.space4
        rightPadding: Theme.space4
        topPadding: Theme.space2 + textStyle.rise
        bottomPadding: Theme.space2 - textStyle.rise
        textStyle: Theme.caption2
        font.weight: Font.DemiBold
        color: Theme.mapJumpRun
        Accessible.ignored: true
    }
}
