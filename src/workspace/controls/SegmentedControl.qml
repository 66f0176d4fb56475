import QtQuick
import QtQuick.Templates as T
import Ospra.Theme

/// One choice out of a few, side by side. It does not change itself: `currentIndex` is bound to the state, and
/// `activated` asks for another.
T.Pane {
    id: root

    property string label: ""
    required property list<string> options
    required property int currentIndex

    /// The user chose the option at `index`.
    signal activated(index: int)

    /// Moves the choice by `step`, no further than the ends.
    function move(step: int) {
        const index = Math.max(0, Math.min(root.options.length - 1, root.currentIndex + step));
        if (index !== root.currentIndex)
            root.activated(index);
    }

    implicitWidth: root.implicitContentWidth
    implicitHeight: root.implicitContentHeight
    opacity: root.enabled ? 1 : 0.38
    focusPolicy: Qt.StrongFocus

    Accessible.role: Accessible.Pane
    Accessible.name: root.label
    Keys.onLeftPressed: root.move(-1)
    Keys.onRightPressed: root.move(1)

    contentItem: Row {
        spacing: Theme.space8

        Label {
            anchors.verticalCenter: parent.verticalCenter
            visible: root.label !== ""
            text: root.label
            color: Theme.textSecondary
            Accessible.ignored: true
        }

        SegmentTrack {
            options: root.options
            currentIndex: root.currentIndex
            control: root
            onActivated: index => root.activated(index)
        }
    }
}
