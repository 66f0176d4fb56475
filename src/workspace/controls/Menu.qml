import QtQuick
import QtQuick.Templates as T
import Ospra.Theme

/// A menu of MenuItems, MenuHeadings and MenuSeparators.
T.Menu {
    id: root

    // Shown instead of the title where the menu is in a menu bar.
    property string iconName: ""

    /// The width that the widest entry asks for.
    function widest(): real {
        let width = Theme.scaled(202);
        for (let index = 0; index < root.count; ++index)
            width = Math.max(width, root.itemAt(index).implicitWidth);
        return Math.ceil(width);
    }

    implicitWidth: root.implicitContentWidth + root.leftPadding + root.rightPadding
    implicitHeight: root.implicitContentHeight + root.topPadding + root.bottomPadding
    padding: Theme.menuPadding
    margins: Theme.space6
    overlap: 1
    delegate: MenuItem { }

    // Not by a binding in the list: it moves to its current entry, and an entry that so comes under the pointer is
    // current at once, which to a binding is a loop.
    onCurrentIndexChanged: {
        const list = root.contentItem as ListView;
        if (list)
            list.currentIndex = root.currentIndex;
    }

    contentItem: ListView {
        implicitWidth: root.widest()
        implicitHeight: contentHeight
        model: root.contentModel
        currentIndex: -1
        interactive: root.height < root.implicitHeight
        boundsBehavior: Flickable.StopAtBounds
        clip: interactive
        Accessible.role: Accessible.PopupMenu
        Accessible.name: root.title.replace("&", "")
    }

    background: MenuGround { }

    enter: Transition {
        NumberAnimation { property: "opacity"; from: 0; to: 1; duration: Theme.menuDuration; easing.type: Easing.OutCubic }
    }

    exit: Transition {
        NumberAnimation { property: "opacity"; from: 1; to: 0; duration: Theme.menuDuration; easing.type: Easing.OutCubic }
    }
}
