import QtQuick
import QtQuick.Templates as T
import Ospra.Theme

/// Makes the value that it covers a stop for the keyboard, from which "Copy" takes it. In a row of them one is the stop
/// for Tab; arrows, which are the row's affair, reach the others.
T.Control {
    id: root

    required property string copyText
    property bool isTabStop: true
    property int radius: Theme.radiusControl

    focusPolicy: root.isTabStop ? Qt.StrongFocus : Qt.ClickFocus

    Accessible.role: Accessible.StaticText
    Accessible.focusable: true

    background: Rectangle {
        radius: root.radius
        color: root.activeFocus ? Theme.hover : "transparent"

        FocusRing {
            control: root
            controlRadius: root.radius
        }
    }

    TapHandler {
        onTapped: root.forceActiveFocus(Qt.MouseFocusReason)
    }
}
