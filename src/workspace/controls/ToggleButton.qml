import QtQuick
import Ospra.Theme

/// A button that tells by tint, colour and edge that what it stands for is on. It does not change itself: `isOn` is
/// bound to the state, and a click asks for the change.
Button {
    id: root

    required property bool isOn

    textColor: root.isOn ? Theme.accent : Theme.text
    iconColor: root.isOn ? Theme.accent : Theme.textSecondary
    groundColor: root.isOn ? Theme.onTint : Theme.control
    edgeColor: root.isOn ? Theme.onEdge : Theme.controlEdge

    CheckedState {
        button: root
        isOn: root.isOn
    }
}
