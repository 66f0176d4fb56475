import QtQuick
import QtQuick.Templates as T
import Ospra.Theme

/// One of several choices below each other. It does not change itself: `isChosen` is bound to the state, and `clicked`
/// asks for the change.
T.RadioButton {
    id: root

    required property bool isChosen

    checkable: false // by the toolkit
    implicitWidth: root.implicitContentWidth + root.leftPadding + root.rightPadding
    implicitHeight: Theme.scaled(28)
    leftPadding: Theme.scaled(23)
    opacity: root.enabled ? 1 : 0.38
    focusPolicy: Qt.StrongFocus

    Accessible.role: Accessible.RadioButton
    Accessible.name: root.text
    Accessible.onPressAction: root.clicked()
    Keys.onReturnPressed: root.clicked()
    Keys.onEnterPressed: root.clicked()

    CheckedState {
        button: root
        isOn: root.isChosen
    }

    contentItem: Label {
        text: root.text
        verticalAlignment: Text.AlignVCenter
        Accessible.ignored: true
    }

    background: Item {
        Rectangle {
            y: Math.ceil((root.height - height) / 2)
            width: Theme.scaled(15)
            height: width
            radius: width / 2
            color: root.isChosen ? Theme.accentFill : "transparent"
            border.color: Theme.textTertiary
            border.width: root.isChosen ? 0 : 1.5

            Rectangle {
                anchors.centerIn: parent
                width: Theme.scaled(5)
                height: width
                radius: width / 2
                visible: root.isChosen
                color: Theme.textOnAccent
            }

            FocusRing {
                control: root
                controlRadius: parent.radius
            }
        }
    }
}
