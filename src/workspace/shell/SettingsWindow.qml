import Ospra.Theme
import Ospra.Workspace

/// The window of settings.
SmallWindow {
    id: root

    required property UnitsSetting units

    title: "Settings"
    contentWidth: Theme.settingsWidth

    firstFocus: view.chosen

    SettingsView {
        id: view

        width: parent.width
        units: root.units
    }
}
