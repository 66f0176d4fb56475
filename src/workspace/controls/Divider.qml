import QtQuick
import Ospra.Theme

/// A hairline, one pixel of the device, across or down.
Rectangle {
    id: root

    property bool isVertical: false
    readonly property real thickness: Theme.lineWidth

    implicitWidth: root.thickness
    implicitHeight: root.thickness
    color: Theme.separator
    antialiasing: false
    Accessible.ignored: true
}
