pragma ComponentBehavior: Bound
import QtQuick
import Ospra.Workspace

/// The small windows of the program, each made when it is first shown.
Item {
    id: root

    // Null where the window has no settings to show.
    required property UnitsSetting units
    required property CheckForUpdatesViewModel updates
    required property list<string> mapCredits

    property SettingsWindow settingsWindow: null
    property AboutWindow aboutWindow: null
    property UpdateWindow updateWindow: null

    function showSettings() {
        if (!root.settingsWindow)
            root.settingsWindow = settingsMaker.createObject(root) as SettingsWindow;
        root.settingsWindow.present();
    }

    function showAbout() {
        if (!root.aboutWindow)
            root.aboutWindow = aboutMaker.createObject(root) as AboutWindow;
        root.aboutWindow.present();
    }

    function showUpdates() {
        if (!root.updateWindow)
            root.updateWindow = updateMaker.createObject(root) as UpdateWindow;
        root.updateWindow.present();
    }

    visible: false

    Component {
        id: settingsMaker

        SettingsWindow {
            transientParent: root.Window.window
            units: root.units
        }
    }

    Component {
        id: aboutMaker

        AboutWindow {
            transientParent: root.Window.window
            mapCredits: root.mapCredits
        }
    }

    Component {
        id: updateMaker

        UpdateWindow {
            transientParent: root.Window.window
            updates: root.updates
        }
    }

    Connections {
        target: root.updates

        function onAttentionWanted() {
            root.showUpdates();
        }
    }
}
