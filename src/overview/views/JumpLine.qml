import QtQuick
import QtQuick.Templates as T
import Ospra.Controls
import Ospra.Theme

/// One jump in a list of the overview; a click opens it.
T.AbstractButton {
    id: root

    required property string title
    required property string value

    /// Gives the focus to the line before or after, if the next control is one.
    function passFocus(isForward: bool) {
        const next = root.nextItemInFocusChain(isForward);
        if (next && next.parent === root.parent)
            next.forceActiveFocus(isForward ? Qt.TabFocusReason : Qt.BacktabFocusReason);
    }

    implicitHeight: Theme.subheadline.lineHeight + 2 * Theme.space2
    focusPolicy: Qt.TabFocus
    hoverEnabled: true

    Accessible.role: Accessible.Button
    Accessible.name: root.title + ", " + root.value
    Accessible.onPressAction: root.clicked()
    Keys.onReturnPressed: root.clicked()
    Keys.onEnterPressed: root.clicked()
    Keys.onUpPressed: root.passFocus(false)
    Keys.onDownPressed: root.passFocus(true)

    Rectangle {
        x: -Theme.space6
        y: -3
        width: root.width + 2 * Theme.space6
        height: root.height + 6
        radius: Theme.radiusControl
        color: root.down ? Theme.pressed : root.hovered ? Theme.hover : Qt.alpha(Theme.hover, 0)

        Behavior on color {
            ColorAnimation { duration: Theme.hoverDuration }
        }

        FocusRing {
            control: root
            anchors.margins: 0
            radius: Theme.radiusControl
        }
    }

    Label {
        anchors.verticalCenter: parent.verticalCenter
        width: root.width - name.width - Theme.space12
        text: root.title
        textStyle: Theme.subheadline
        isTabular: true
        elide: Text.ElideRight
        Accessible.ignored: true
    }

    Label {
        id: name

        anchors.right: parent.right
        anchors.verticalCenter: parent.verticalCenter
        width: Math.min(Math.ceil(implicitWidth), root.width / 2)
        text: root.value
        textStyle: Theme.caption
        isTabular: true
        color: Theme.textSecondary
        elide: Text.ElideRight
        Accessible.ignored: true
    }
}
