import QtQuick
import Ospra.Controls
import Ospra.Theme

/// The jumps of one month and how many a week that makes.
Item {
    id: root

    required property string title
    required property string value
    required property string note

    implicitHeight: Theme.subheadline.lineHeight + 2 * Theme.space2

    Accessible.role: Accessible.ListItem
    Accessible.name: root.title + ", " + root.value + ", " + root.note

    Label {
        anchors.verticalCenter: parent.verticalCenter
        width: jumps.x - Theme.space12
        text: root.title
        textStyle: Theme.subheadline
        elide: Text.ElideRight
        Accessible.ignored: true
    }

    Label {
        id: jumps

        anchors.right: average.left
        anchors.rightMargin: Theme.space12
        anchors.verticalCenter: parent.verticalCenter
        text: root.value
        textStyle: Theme.subheadline
        isTabular: true
        Accessible.ignored: true
    }

    Label {
        id: average

        anchors.right: parent.right
        anchors.verticalCenter: parent.verticalCenter
        width: Math.max(Theme.scaled(52), Math.ceil(implicitWidth))
        horizontalAlignment: Text.AlignRight
        text: root.note
        textStyle: Theme.subheadline
        isTabular: true
        color: Theme.textSecondary
        Accessible.ignored: true
    }
}
