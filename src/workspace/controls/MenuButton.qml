import QtQuick
import Ospra.Theme

/// A button with a chevron that opens a menu below itself. Its menu is its child: `MenuButton { Menu { ... } }`.
Button {
    id: root

    default required property Menu menu
    // Without its text, which the tooltip then tells, where the room is short.
    property bool isCompact: false
    property string title: ""
    property int menuGap: Theme.space12

    text: root.isCompact ? "" : root.title
    toolTip: root.isCompact ? root.title : ""
    hasChevron: true
    horizontalPadding: Theme.space8
    groundColor: root.menu.visible ? Theme.selection : root.kind === Button.Plain ? "transparent" : Theme.control

    Accessible.role: Accessible.ButtonMenu
    Accessible.name: root.title

    onClicked: {
        if (root.menu.visible) {
            root.menu.close();
            return;
        }
        root.menu.open();
        root.menu.currentIndex = root.visualFocus ? 0 : -1;
    }

    Connections {
        target: root.menu

        // Unless a click elsewhere closed the menu, the focus comes back.
        function onClosed() {
            if (!root.Window.activeFocusItem || root.Window.activeFocusItem === root.Window.contentItem)
                root.forceActiveFocus(Qt.PopupFocusReason);
        }
    }

    Binding {
        target: root.menu
        property: "parent"
        value: root
    }

    Binding {
        target: root.menu
        property: "y"
        value: root.height + root.menuGap
    }
}
