import QtQuick
import Ospra.Theme

/// Icon, text and, where the button opens a menu, the chevron, side by side in the middle.
Item {
    id: root

    required property string iconName
    required property string text
    required property color textColor
    required property color iconColor
    property bool hasChevron: false
    property real iconSize: Theme.iconSmall
    property int gap: Theme.space6
    property TextStyle textStyle: Theme.body
    property int weight: Font.Medium
    property alias textFormat: label.textFormat

    implicitWidth: row.implicitWidth
    implicitHeight: row.implicitHeight

    Row {
        id: row

        anchors.centerIn: parent
        spacing: root.gap

        Icon {
            anchors.verticalCenter: parent.verticalCenter
            visible: root.iconName !== ""
            name: root.iconName
            size: root.iconSize
            color: root.iconColor
        }

        Label {
            id: label

            anchors.verticalCenter: parent.verticalCenter
            visible: root.text !== ""
            text: root.text
            textStyle: root.textStyle
            color: root.textColor
            font.weight: root.weight
            Accessible.ignored: true
        }

        Icon {
            anchors.verticalCenter: parent.verticalCenter
            visible: root.hasChevron
            name: "chevron-down"
            size: Theme.scaled(12)
            color: Theme.textSecondary
        }
    }
}
