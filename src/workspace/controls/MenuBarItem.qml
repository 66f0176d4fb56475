import QtQuick
import QtQuick.Templates as T
import Ospra.Theme

/// The title of a menu in the menu bar, or the menu's icon.
T.MenuBarItem {
    id: root

    property bool showsLetter: false
    readonly property Menu ownMenu: root.menu as Menu
    readonly property string iconName: root.ownMenu ? root.ownMenu.iconName : ""
    readonly property string plainText: root.text.replace("&", "")

    implicitWidth: root.implicitContentWidth + root.leftPadding + root.rightPadding
    implicitHeight: Theme.menuBarHeight - Theme.space6
    leftPadding: root.iconName === "" ? 9 : 8
    rightPadding: root.iconName === "" ? 9 : 6
    hoverEnabled: true

    // The toolkit would call it a menu bar.
    Accessible.ignored: true

    // While the pointer is over the title, the toolkit would keep the bar ready to open menus after this one has been
    // closed, and the title marked for good. It lets go of a title that is disabled.
    Connections {
        target: root.menu

        function onAboutToHide() {
            root.enabled = false;
        }

        function onClosed() {
            root.enabled = true;
        }
    }

    contentItem: ButtonFace {
        iconName: root.iconName
        text: root.iconName !== "" ? "" : root.showsLetter ? root.text.replace(/&(.)/, "<u>$1</u>") : root.plainText
        textFormat: Text.StyledText // always, so that no title moves when its letter shows
        textColor: Theme.text
        iconColor: Theme.textSecondary
        iconSize: Theme.iconToolbar
        weight: Font.Normal
        Accessible.role: Accessible.MenuItem
        Accessible.name: root.plainText
        Accessible.onPressAction: root.clicked()
    }

    background: Rectangle {
        radius: Theme.radiusItem
        color: root.highlighted || root.down ? Theme.control : root.hovered ? Theme.hover : "transparent"
    }
}
