import QtQuick
import QtQuick.Templates as T
import Ospra.Controls
import Ospra.Theme
import Ospra.Workspace

/// The whole content of the window: the sidebar and, beside it, the screen that the model's state calls for.
FocusScope {
    id: root

    required property OspraModel source
    required property WindowCommands commands

    // The menus show their letters then.
    property bool isAltHeld: false

    /// Puts the keyboard on the welcome screen's button, unless it stands somewhere already: in a list, a menu, an alert.
    function welcome() {
        const focused = root.Window.activeFocusItem;
        if (content.screen === ContentState.Welcome && (!focused || focused === root || focused === split))
            detail.welcome();
    }

    Component.onCompleted: {
        root.source.restoreFolders();
        root.forceActiveFocus();
        root.welcome();
    }
    Keys.onDownPressed: root.source.selectNextJump()
    Keys.onUpPressed: root.source.selectPreviousJump()
    Keys.onSpacePressed: root.source.toggleDefaultZoom()
    Keys.onPressed: event => {
        if (event.key === Qt.Key_Alt)
            root.isAltHeld = true;
    }
    Keys.onReleased: event => {
        if (event.key === Qt.Key_Alt)
            root.isAltHeld = false;
    }
    onActiveFocusChanged: if (!root.activeFocus) root.isAltHeld = false

    Connections {
        target: root.source

        function onUseMetricChanged() {
            root.source.rebuildDisplayData();
        }
    }

    // The commands of the menus, while this is on screen.
    Connections {
        target: root.commands
        enabled: root.visible

        function onOpenFolder() {
            panel.openFolder();
        }

        function onAddCompanionFolder() {
            panel.addCompanion();
        }

        function onZoomToFreefall() {
            content.zoomToFreefall();
        }

        function onZoomToCanopy() {
            content.zoomToCanopy();
        }

        function onZoomToAll() {
            root.source.clearZoom();
        }
    }

    ContentState {
        id: content

        source: root.source
        onScreenChanged: root.welcome()
    }

    FolderPanel {
        id: panel

        source: root.source
    }

    SplitView {
        id: split

        anchors.fill: parent

        Sidebar {
            T.SplitView.preferredWidth: root.width < Theme.scaled(1000) ? Theme.sidebarMinimum : Theme.sidebarWidth
            T.SplitView.minimumWidth: Theme.sidebarMinimum
            T.SplitView.maximumWidth: 2 * Theme.sidebarWidth
            source: root.source
            isLoading: content.sidebarIsLoading
            onOpenFolder: panel.openFolder()
            onAddCompanion: panel.addCompanion()
        }

        DetailArea {
            id: detail

            T.SplitView.fillWidth: true
            source: root.source
            screen: content.screen
            onOpenFolder: panel.openFolder()
        }
    }

    Alert {
        title: "Unable to Load Jump Data"
        message: root.source.hasError ? root.source.errorMessage : "Unknown error"
        isShown: root.source.hasError
        onDismissed: root.source.dismissError()
    }
}
