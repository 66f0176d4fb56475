import QtQml
import QtQuick.Templates as T
import Ospra.Workspace

/// The commands on folders, each with its text, its shortcut and when it can be given. Menus that hold the same command
/// share the one action, so that its shortcut acts once.
QtObject {
    id: root

    required property OspraModel source
    required property WindowCommands commands

    readonly property T.Action openFolder: T.Action {
        text: "Open Folder..."
        shortcut: "Ctrl+O"
        onTriggered: root.commands.openFolder()
    }
    readonly property T.Action addCompanionFolder: T.Action {
        text: "Add Companion Folder..."
        shortcut: "Ctrl+Shift+A"
        enabled: root.source.hasJumpers
        onTriggered: root.commands.addCompanionFolder()
    }
    readonly property T.Action refresh: T.Action {
        text: "Refresh"
        shortcut: "Ctrl+R"
        enabled: root.source.hasJumpers
        onTriggered: root.source.rebuildGroups()
    }
    readonly property T.Action closeFolder: T.Action {
        text: "Close Current Folder"
        shortcut: "Ctrl+Shift+W"
        enabled: root.source.hasJumpers
        onTriggered: root.source.closeFolder()
    }
}
