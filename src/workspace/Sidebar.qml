pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Templates as T
import Ospra.Controls
import Ospra.Theme
import Ospra.Workspace

/// The list of jumps with its title and the menu of folders.
Rectangle {
    id: root

    required property OspraModel source
    required property bool isLoading

    signal openFolder
    signal addCompanion

    color: Theme.sidebar

    Label {
        id: title

        x: Theme.space16
        height: Theme.toolbarHeight
        verticalAlignment: Text.AlignVCenter
        text: "Ospra"
        textStyle: Theme.headline
    }

    FoldersMenu {
        anchors.right: parent.right
        anchors.rightMargin: Theme.space6
        anchors.verticalCenter: title.verticalCenter
        source: root.source
        onOpenFolder: root.openFolder()
        onAddCompanion: root.addCompanion()
    }

    LoadingScreen {
        anchors.fill: parent
        visible: root.isLoading
        text: "Loading jumps..."
        textStyle: Theme.caption
    }

    ListView {
        id: list

        anchors.fill: parent
        anchors.topMargin: Theme.toolbarHeight
        clip: true
        boundsBehavior: Flickable.StopAtBounds
        topMargin: 0
        bottomMargin: Theme.space8
        reuseItems: true
        cacheBuffer: 400
        currentIndex: rows.selectedRow
        highlightFollowsCurrentItem: false
        keyNavigationEnabled: false
        model: rows
        onCurrentIndexChanged: if (list.currentIndex >= 0) list.positionViewAtIndex(list.currentIndex, ListView.Contain)

        Accessible.role: Accessible.List
        Accessible.name: "Jumps"
        T.ScrollBar.vertical: ScrollBar { }

        delegate: SidebarRow {
            width: list.width
            isSelected: ListView.isCurrentItem
            onClicked: rows.activate(index)
        }
    }

    SidebarModel {
        id: rows

        source: root.source
    }

    // The ages of the jumps move on while the window stands open.
    Timer {
        interval: 60000
        repeat: true
        running: list.count > 0 && root.Window.active
        onTriggered: rows.refreshAges()
    }
}
