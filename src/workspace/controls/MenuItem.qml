import QtQuick
import QtQuick.Templates as T
import Ospra.Theme

/// An entry of a menu: check or icon (`icon.name`), text, shortcut.
T.MenuItem {
    id: root

    // As shown; an action's shortcut unless set.
    property string shortcutText: root.action && typeof root.action.shortcut === "string" ? root.action.shortcut : ""
    property bool hasCheck: root.checkable
    property bool isOn: root.checked
    readonly property string plainText: root.text.replace("&", "")

    /// Does what a click would do.
    function press() {
        if (root.action)
            root.action.trigger(root);
        else
            root.clicked();
    }

    implicitWidth: root.implicitContentWidth
    implicitHeight: Theme.menuItemHeight
    opacity: root.enabled ? 1 : 0.38
    hoverEnabled: true

    Accessible.role: Accessible.MenuItem
    Accessible.name: root.plainText
    Accessible.onPressAction: root.press()

    CheckedState {
        button: root
        isCheckable: root.hasCheck
        isOn: root.isOn
    }

    contentItem: MenuRow {
        iconName: root.hasCheck ? root.isOn ? "check" : "" : root.icon.name
        text: root.plainText
        shortcutText: root.shortcutText
        isHighlighted: root.highlighted
    }

    background: Rectangle {
        radius: Theme.radiusItem
        color: root.highlighted ? Theme.accentFill : "transparent"
    }
}
