import QtQuick
import QtQuick.Templates as T
import Ospra.Theme

/// One option of a segmented control.
T.RadioButton {
    id: root

    required property int index
    required property string modelData
    required property bool isChosen

    text: root.modelData
    checkable: false // by the toolkit
    implicitWidth: Math.max(Theme.segmentMinimum, root.implicitContentWidth + 2 * Theme.space14)
    implicitHeight: Theme.segmentHeight
    focusPolicy: Qt.NoFocus
    hoverEnabled: true

    Accessible.role: Accessible.RadioButton
    Accessible.name: root.text
    Accessible.onPressAction: root.clicked()

    CheckedState {
        button: root
        isOn: root.isChosen
    }

    contentItem: ButtonFace {
        iconName: ""
        text: root.text
        textColor: root.isChosen ? Theme.text : Theme.textSecondary
        iconColor: textColor
    }

    background: Item {
        Rectangle {
            y: Theme.lineWidth
            width: parent.width
            height: parent.height
            visible: root.isChosen
            radius: Theme.radiusControl
            color: Theme.controlShadow
        }

        Rectangle {
            anchors.fill: parent
            radius: Theme.radiusControl
            color: root.isChosen ? Theme.controlRaised : Qt.alpha(Theme.controlRaised, 0)
            border.color: Theme.controlEdge
            border.width: root.isChosen && Theme.isHighContrast ? Theme.lineWidth : 0

            Behavior on color {
                ColorAnimation { duration: Theme.toggleDuration }
            }
        }

        StateOverlay {
            isHovered: root.hovered && !root.isChosen
            isPressed: root.down && !root.isChosen
        }
    }
}
