import QtQuick
import Ospra.Controls
import Ospra.Theme
import Ospra.Workspace

/// The program's one window.
ApplicationWindow {
    id: root

    required property OspraModel source
    // What only the running program has.
    property UnitsSetting units: null
    property CheckForUpdatesViewModel updates: null
    property list<string> mapCredits: []

    width: 1200
    height: 700
    minimumWidth: Theme.windowMinimumWidth
    minimumHeight: Theme.windowMinimumHeight
    visible: true
    title: "Ospra"
    color: Theme.chrome

    menuBar: AppMenuBar {
        source: root.source
        commands: windowCommands
        windows: smallWindows
        updates: root.updates
        showsLetters: content.isAltHeld
    }

    WindowCommands {
        id: windowCommands

        objectName: "windowCommands"
    }

    ShellWindows {
        id: smallWindows

        units: root.units
        updates: root.updates
        mapCredits: root.mapCredits
    }

    FolderDropArea {
        anchors.fill: parent
        z: 1
        source: root.source
    }

    ContentView {
        id: content

        objectName: "content"
        anchors.fill: parent
        focus: true
        source: root.source
        commands: windowCommands
    }
}
