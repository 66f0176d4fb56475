import QtQuick
import Ospra.Theme

/// What a menu entry shows: an icon or check in its column, the text, the shortcut at the end.
Item {
    id: root

    required property string iconName
    required property string text
    required property string shortcutText
    required property bool isHighlighted

    implicitWidth: label.x + label.implicitWidth + root.shortcutWidth + Theme.space10
    readonly property real shortcutWidth: root.shortcutText !== "" ? 2 * Theme.padding + shortcut.implicitWidth : 0

    Icon {
        x: Theme.menuItemPadding
        y: Math.floor((root.height - height) / 2)
        visible: name !== ""
        name: root.iconName
        size: Theme.scaled(14)
        color: root.isHighlighted ? Theme.textOnAccent : Theme.textSecondary
    }

    Label {
        id: label

        x: Theme.menuItemPadding + Theme.menuColumn
        anchors.verticalCenter: parent.verticalCenter
        text: root.text
        color: root.isHighlighted ? Theme.textOnAccent : Theme.text
        Accessible.ignored: true
    }

    Label {
        id: shortcut

        anchors.right: parent.right
        anchors.rightMargin: Theme.space10
        anchors.verticalCenter: parent.verticalCenter
        text: root.shortcutText
        textStyle: Theme.subheadline
        color: root.isHighlighted ? Theme.textOnAccent : Theme.textTertiary
        Accessible.ignored: true
    }
}
