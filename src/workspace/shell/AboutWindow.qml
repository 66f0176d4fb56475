import QtQuick
import Ospra.Controls
import Ospra.Theme
import Ospra.Workspace

/// What the program is, by whom, and on what it stands.
SmallWindow {
    id: root

    // Whose maps are shown, in the words that they ask for.
    required property list<string> mapCredits
    property bool showsLicence: false

    title: "About Ospra"
    contentWidth: root.showsLicence ? Theme.aboutWideWidth : Theme.aboutWidth
    firstFocus: licenceButton
    onClosing: root.showsLicence = false

    ProgramInfo {
        id: info
    }

    Icon {
        anchors.horizontalCenter: parent.horizontalCenter
        name: "ospra"
        size: Theme.iconWelcome
    }

    Column {
        width: parent.width
        spacing: Theme.space2

        Label {
            width: parent.width
            text: "Ospra"
            textStyle: Theme.headline
            horizontalAlignment: Text.AlignHCenter
        }

        Label {
            width: parent.width
            text: "Version " + info.version
            color: Theme.textSecondary
            horizontalAlignment: Text.AlignHCenter
        }
    }

    CreditList {
        width: parent.width
        title: "Built with"
        lines: info.libraries
    }

    CreditList {
        width: parent.width
        visible: root.mapCredits.length > 0
        title: "Maps"
        lines: root.mapCredits
    }

    LicenceText {
        width: parent.width
        visible: root.showsLicence
        text: info.licence
    }

    Button {
        id: licenceButton

        anchors.horizontalCenter: parent.horizontalCenter
        text: root.showsLicence ? "Hide License" : "MIT License"
        onClicked: root.showsLicence = !root.showsLicence
    }
}
