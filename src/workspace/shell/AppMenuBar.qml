import QtQuick
import QtQuick.Templates as T
import Ospra.Controls
import Ospra.Workspace

/// The menu bar of the window.
MenuBar {
    id: root

    required property OspraModel source
    required property WindowCommands commands
    required property ShellWindows windows
    required property CheckForUpdatesViewModel updates

    readonly property FolderCommands folders: FolderCommands {
        source: root.source
        commands: root.commands
    }
    readonly property JumpCommands jumps: JumpCommands {
        source: root.source
        commands: root.commands
    }
    readonly property CopyCommand copying: CopyCommand {
        window: root.Window.window
    }

    // The other menus have their letters, with Alt.
    Shortcut {
        sequence: "F10"
        onActivated: (root.itemAt(0) as MenuBarItem).clicked()
    }

    ApplicationMenu {
        windows: root.windows
        updates: root.updates
    }

    Menu {
        title: "&File"

        MenuItem { action: root.folders.openFolder }
        MenuItem { action: root.folders.addCompanionFolder }
        MenuSeparator { }
        MenuItem { action: root.folders.refresh }
        MenuItem { action: root.folders.closeFolder }
    }

    Menu {
        title: "&Edit"

        T.Action {
            text: "Copy"
            shortcut: "Ctrl+C"
            enabled: root.copying.isEnabled
            onTriggered: root.copying.copy()
        }
    }

    CompanionsMenu {
        source: root.source
        folderCommands: root.folders
    }

    Menu {
        title: "&Jump"

        MenuItem { action: root.jumps.zoomToFreefall }
        MenuItem { action: root.jumps.zoomToCanopy }
        MenuItem { action: root.jumps.zoomToAll }
    }
}
