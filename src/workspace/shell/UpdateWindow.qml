import QtQuick
import Ospra.Controls
import Ospra.Theme
import Ospra.Workspace

/// What came of a check for updates.
SmallWindow {
    id: root

    required property CheckForUpdatesViewModel updates
    readonly property bool isChecking: root.updates.outcome === CheckForUpdatesViewModel.Checking
    readonly property bool isNewer: root.updates.outcome === CheckForUpdatesViewModel.Newer
    readonly property string heading: {
        switch (root.updates.outcome) {
        case CheckForUpdatesViewModel.Newer: return "Ospra " + root.updates.newVersion + " is available";
        case CheckForUpdatesViewModel.UpToDate: return "Ospra is up to date";
        case CheckForUpdatesViewModel.Failed: return "The check did not succeed";
        default: return "Checking for updates…";
        }
    }
    readonly property string explanation: {
        if (root.isChecking)
            return "";
        if (root.updates.outcome === CheckForUpdatesViewModel.Failed)
            return "The list of releases could not be read. Please try again later.";
        return "You have version " + root.updates.ownVersion + ".";
    }

    title: "Updates"
    contentWidth: Theme.settingsWidth
    firstFocus: root.isNewer ? pageButton : closeButton
    onFirstFocusChanged: root.firstFocus.forceActiveFocus(Qt.TabFocusReason)

    Label {
        width: parent.width
        text: root.heading
        textStyle: Theme.headline
        horizontalAlignment: Text.AlignHCenter
        wrapMode: Text.Wrap
        Accessible.role: Accessible.AlertMessage
    }

    Item {
        width: parent.width
        height: Math.max(Theme.spinnerSize, words.height)

        Spinner {
            anchors.centerIn: parent
            visible: root.isChecking
        }

        Label {
            id: words

            width: parent.width
            text: root.explanation
            color: Theme.textSecondary
            horizontalAlignment: Text.AlignHCenter
            wrapMode: Text.Wrap
        }
    }

    Row {
        anchors.horizontalCenter: parent.horizontalCenter
        spacing: Theme.space8

        Button {
            id: pageButton

            visible: root.isNewer
            kind: Button.Prominent
            text: "Show in Browser"
            onClicked: {
                root.updates.openPage();
                root.close();
            }
        }

        Button {
            id: closeButton

            implicitHeight: Theme.prominentHeight
            kind: root.isNewer ? Button.Normal : Button.Prominent
            text: root.isNewer ? "Not Now" : root.isChecking ? "Close" : "OK"
            onClicked: root.close()
        }
    }
}
