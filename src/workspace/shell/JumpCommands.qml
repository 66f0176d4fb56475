import QtQml
import QtQuick.Templates as T
import Ospra.Workspace

/// The commands on the jump on screen.
QtObject {
    id: root

    required property OspraModel source
    required property WindowCommands commands

    readonly property T.Action zoomToFreefall: T.Action {
        text: "Zoom to Freefall"
        shortcut: "Ctrl+1"
        enabled: root.source.hasTracks
        onTriggered: root.commands.zoomToFreefall()
    }
    readonly property T.Action zoomToCanopy: T.Action {
        text: "Zoom to Canopy"
        shortcut: "Ctrl+2"
        enabled: root.source.hasTracks
        onTriggered: root.commands.zoomToCanopy()
    }
    readonly property T.Action zoomToAll: T.Action {
        text: "Show All"
        shortcut: "Ctrl+3"
        enabled: root.source.hasTracks
        onTriggered: root.commands.zoomToAll()
    }
}
