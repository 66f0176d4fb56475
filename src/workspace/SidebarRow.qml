import QtQuick
import QtQuick.Templates as T
import Ospra.Controls
import Ospra.Theme
import Ospra.Workspace

/// One row of the sidebar, of whatever kind.
T.ItemDelegate {
    id: root

    required property int index
    required property int kind
    required property string title
    required property string name
    required property string age
    required property var dots
    required property bool isSelected
    readonly property bool isHeading: root.kind === SidebarModel.Heading
    readonly property bool isJump: root.kind === SidebarModel.Jump

    implicitHeight: root.isHeading ? heading.implicitHeight : root.isJump ? Theme.sidebarJumpHeight : Theme.sidebarRowHeight
    enabled: !root.isHeading
    focusPolicy: Qt.NoFocus
    hoverEnabled: true

    Accessible.ignored: root.isHeading
    Accessible.role: Accessible.ListItem
    Accessible.name: root.age === "" ? root.title : root.title + ", " + root.name + ", " + root.age
    Accessible.selectable: true
    Accessible.selected: root.isSelected
    Accessible.onPressAction: root.clicked()

    Rectangle {
        x: Theme.space8
        width: root.width - 2 * Theme.space8
        height: root.height
        radius: Theme.radiusControl
        visible: !root.isHeading
        color: root.isSelected ? (root.Window.active ? Theme.selection : Theme.selectionInactive) : root.down ? Theme.pressed : root.hovered ? Theme.hover : "transparent"
    }

    JumpGroupRow {
        x: Theme.space16
        width: root.width - 2 * Theme.space16
        height: root.height
        visible: root.isJump
        title: root.title
        name: root.name
        age: root.age
        dots: root.dots
    }

    SidebarItem {
        x: Theme.space16
        width: root.width - 2 * Theme.space16
        height: root.height
        visible: !root.isJump && !root.isHeading
        iconName: root.kind === SidebarModel.Overview ? "overview" : "filter-day"
        title: root.title
        isSelected: root.isSelected || root.kind === SidebarModel.Filter
    }

    Label {
        id: heading

        x: Theme.space16
        width: root.width - 2 * Theme.space16
        visible: root.isHeading
        topPadding: 13
        bottomPadding: Theme.space4
        text: root.title
        textStyle: Theme.caption
        font.weight: Font.DemiBold
        color: Theme.textSecondary
        elide: Text.ElideRight
        Accessible.role: Accessible.Heading
    }
}
