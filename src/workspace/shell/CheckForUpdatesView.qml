import Ospra.Controls
import Ospra.Workspace

/// The menu's entry for a check.
MenuItem {
    id: root

    required property CheckForUpdatesViewModel updates

    text: "Check for Updates…"
    enabled: root.updates.canCheckForUpdates
    onTriggered: root.updates.checkForUpdates()
}
