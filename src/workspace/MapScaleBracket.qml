import QtQuick

/// The bracket of the scale bar: a line with a tick at each end, `halo` thicker all around.
Item {
    id: root

    required property color color
    property real halo: 0
    property real thickness: 1.5
    readonly property real stroke: root.thickness + 2 * root.halo

    Rectangle {
        x: -root.halo
        y: -root.halo
        width: root.stroke
        height: root.height - root.thickness
        color: root.color
    }

    Rectangle {
        x: root.width - root.thickness - root.halo
        y: -root.halo
        width: root.stroke
        height: root.height - root.thickness
        color: root.color
    }

    Rectangle {
        x: -root.halo
        y: root.height - root.thickness - root.halo
        width: root.width + 2 * root.halo
        height: root.stroke
        color: root.color
    }
}
