import QtQuick
import Ospra.Theme
import Ospra.TileMap

/// An icon in the middle of a coordinate, on a round ground or none.
MapAnchor {
    id: root

    property string title: ""
    property alias icon: picture.name
    property alias size: picture.size
    property alias color: picture.color
    property real padding: 0
    property color disc: "transparent"

    width: picture.width + 2 * root.padding
    height: root.width
    Accessible.role: Accessible.StaticText
    Accessible.name: root.title
    Accessible.ignored: root.title === ""

    Rectangle {
        anchors.fill: parent
        radius: width / 2
        color: root.disc
    }

    Icon {
        id: picture

        x: root.padding
        y: root.padding
    }
}
