import QtQuick
import Ospra.Theme

/// Makes the value that it covers a stop for the keyboard, from which "Copy" takes it. In a row of them one is the stop
/// for Tab; arrows, which are the row's affair, reach the others. A control of the toolkit would not keep the role.
Item {
    id: root

    required property string copyText
    property bool isTabStop: true
    property int radius: Theme.radiusControl

    activeFocusOnTab: root.isTabStop

    Accessible.role: Accessible.StaticText
    Accessible.focusable: true

    Rectangle {
        anchors.fill: parent
        radius: root.radius
        color: root.activeFocus ? Theme.hover : "transparent"

        FocusRing {
            id: ring

            control: root
            controlRadius: root.radius
        }
    }

    TapHandler {
        onTapped: {
            root.forceActiveFocus(Qt.MouseFocusReason);
            ring.takeReason(Qt.MouseFocusReason);
        }
    }
}
