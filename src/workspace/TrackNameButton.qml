import QtQuick
import QtQuick.Templates as T
import Ospra.Controls
import Ospra.Theme

/// The name of a track in its bar: a click hides the track or shows it again.
T.CheckDelegate {
    id: root

    required property string name
    required property int jumperColor
    required property bool isHidden
    required property string toolTip

    checkable: false // by the toolkit
    implicitHeight: Theme.barRowHeight - Theme.space4
    focusPolicy: Qt.StrongFocus
    hoverEnabled: true

    Accessible.role: Accessible.CheckBox
    Accessible.name: root.name
    Accessible.description: root.toolTip
    Accessible.onPressAction: root.clicked()
    Keys.onReturnPressed: root.clicked()
    Keys.onEnterPressed: root.clicked()

    CheckedState {
        button: root
        isOn: !root.isHidden
    }

    Rectangle {
        x: -Theme.space4
        width: content.width + 2 * Theme.space4
        height: root.height
        radius: Theme.radiusControl
        color: root.down ? Theme.pressed : root.hovered || root.visualFocus ? Theme.hover : "transparent"

        FocusRing {
            control: root
        }
    }

    Row {
        id: content

        anchors.verticalCenter: parent.verticalCenter
        spacing: Theme.space4
        opacity: root.isHidden && !root.hovered && !root.visualFocus ? 0.3 : 1

        JumperDot {
            anchors.verticalCenter: parent.verticalCenter
            jumperColor: root.jumperColor
            opacity: root.isHidden ? 0.3 : 1
        }

        Label {
            id: words

            width: Math.min(implicitWidth, root.width - x)
            text: root.name
            elide: Text.ElideMiddle
            textStyle: Theme.caption
            font.weight: Font.Medium
            color: root.isHidden ? Theme.textTertiary : Theme.text
            Accessible.ignored: true
        }
    }

    HoverHandler {
        cursorShape: Qt.PointingHandCursor
    }

    ToolTipLoader {
        text: words.truncated ? root.name + "\n" + root.toolTip : root.toolTip
        isShown: root.hovered && !root.down
    }
}
