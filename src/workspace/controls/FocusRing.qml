import QtQuick
import QtQuick.Templates as T
import Ospra.Theme

/// The ring around the control that a key gave the keyboard's focus; fills its parent and stands outside it. It comes
/// back with the window or after a menu: only a click takes it away for good.
Rectangle {
    id: root

    required property Item control
    // Null for an item that is no control of the toolkit. Such an item keeps no reason: the focus is from a key unless
    // the item has told of a click.
    readonly property T.Control reasoned: root.control as T.Control
    property real controlRadius: Theme.radiusControl
    // At first true: what has the focus when the window opens is to be seen, before any key or click.
    property bool isFromKey: true
    readonly property int reach: Theme.focusRingGap + Theme.focusRingWidth

    /// Keeps in mind how the control came to the focus, where the window or a menu did not merely give it back.
    function takeReason(reason: int) {
        if (reason === Qt.TabFocusReason || reason === Qt.BacktabFocusReason || reason === Qt.ShortcutFocusReason)
            root.isFromKey = true;
        else if (reason === Qt.MouseFocusReason || reason === Qt.OtherFocusReason)
            root.isFromKey = false;
    }

    anchors.fill: root.parent
    anchors.margins: -root.reach
    radius: root.controlRadius + root.reach
    color: "transparent"
    border.color: Theme.focusRing
    border.width: Theme.focusRingWidth
    visible: root.control.activeFocus && root.isFromKey

    // A click on what has the focus already changes no reason.
    PointHandler {
        parent: root.control
        onActiveChanged: if (active && (root.reasoned || root.control.activeFocus)) root.isFromKey = false
    }

    Connections {
        target: root.reasoned

        function onFocusReasonChanged() {
            root.takeReason(root.reasoned.focusReason);
        }
    }

    Connections {
        target: root.reasoned ? null : root.control

        function onFocusChanged() {
            if (!root.control.focus)
                root.isFromKey = true;
        }
    }
}
