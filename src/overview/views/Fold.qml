import QtQuick

/// Takes its content and the gap below it in and out of a column.
Item {
    id: root

    required property bool isOpen
    required property int gap
    required property int duration
    property bool isAnimated: true
    property real openness: root.isOpen ? 1 : 0
    default property alias content: holder.data

    implicitHeight: root.openness * (holder.height + root.gap)
    opacity: root.openness
    visible: root.openness > 0
    clip: root.openness < 1

    Behavior on openness {
        enabled: root.isAnimated

        NumberAnimation {
            duration: root.duration
            easing.type: Easing.InOutQuad
        }
    }

    Item {
        id: holder

        width: root.width
        height: childrenRect.height
    }
}
