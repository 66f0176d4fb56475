import QtQuick
import Ospra.Controls
import Ospra.Theme

/// A spinner with a text below it, in the middle of its area. Both fade in after a moment, so that what is quick does
/// not flash.
Item {
    id: root

    required property string text
    property TextStyle textStyle: Theme.body

    Column {
        anchors.centerIn: parent
        spacing: Theme.space10

        Spinner {
            id: spinner

            isRunning: root.visible
            anchors.horizontalCenter: parent.horizontalCenter
        }

        Label {
            anchors.horizontalCenter: parent.horizontalCenter
            text: root.text
            textStyle: root.textStyle
            color: Theme.textSecondary
            opacity: spinner.opacity
        }
    }
}
