pragma ComponentBehavior: Bound
import QtQml.Models
import QtQuick
import QtQuick.Templates as T
import Ospra.Controls
import Ospra.Workspace

/// The menu of the program itself, behind its icon.
Menu {
    id: root

    required property ShellWindows windows
    // Null where no feed was built in; the menu then has no entry for it.
    required property CheckForUpdatesViewModel updates

    title: "Ospra"
    iconName: "ospra"

    T.Action {
        text: "About Ospra"
        onTriggered: root.windows.showAbout()
    }

    MenuSeparator { }

    T.Action {
        text: "Settings…"
        shortcut: "Ctrl+,"
        onTriggered: root.windows.showSettings()
    }

    MenuSeparator { }

    T.Action {
        text: "Quit"
        shortcut: "Ctrl+Q"
        onTriggered: Qt.quit()
    }

    Instantiator {
        model: root.updates ? 1 : 0
        delegate: CheckForUpdatesView {
            updates: root.updates
        }
        onObjectAdded: (index, object) => root.insertItem(1, object as CheckForUpdatesView)
        onObjectRemoved: (index, object) => root.removeItem(object as CheckForUpdatesView)
    }
}
