import QtQuick
import Ospra.Controls
import Ospra.Theme

/// An icon and a text: the overview, or the day filter.
Item {
    id: root

    required property string iconName
    required property string title
    required property bool isSelected

    Icon {
        id: icon

        anchors.verticalCenter: parent.verticalCenter
        name: root.iconName
        size: Theme.iconSmall
        color: root.isSelected ? Theme.accent : Theme.textSecondary
    }

    Label {
        anchors.left: icon.right
        anchors.leftMargin: Theme.space8
        anchors.right: parent.right
        anchors.verticalCenter: parent.verticalCenter
        text: root.title
        elide: Text.ElideRight
        Accessible.ignored: true
    }
}
