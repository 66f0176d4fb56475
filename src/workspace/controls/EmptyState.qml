import QtQuick
import Ospra.Theme

/// What stands where there is nothing to show: icon, title, description and, below them, whatever is put in. Fills its
/// area and stands a little above the middle.
Item {
    id: root

    property string icon: ""
    property real iconSize: Theme.iconEmpty
    property color iconColor: Theme.textTertiary
    property string title: ""
    property TextStyle titleStyle: Theme.headline
    property string description: ""
    property int spacing: Theme.space8
    default property alias actions: column.data

    Accessible.role: Accessible.Grouping
    Accessible.name: root.title

    Column {
        id: column

        anchors.centerIn: parent
        anchors.verticalCenterOffset: -Theme.toolbarHeight / 2
        width: Math.min(Theme.emptyStateWidth, root.width - 2 * Theme.padding)
        spacing: root.spacing

        Icon {
            anchors.horizontalCenter: parent.horizontalCenter
            visible: root.icon !== ""
            name: root.icon
            size: root.iconSize
            color: root.iconColor
        }

        Label {
            width: parent.width
            visible: root.title !== ""
            text: root.title
            textStyle: root.titleStyle
            horizontalAlignment: Text.AlignHCenter
            wrapMode: Text.Wrap
        }

        Label {
            width: parent.width
            visible: root.description !== ""
            text: root.description
            color: Theme.textSecondary
            horizontalAlignment: Text.AlignHCenter
            wrapMode: Text.Wrap
        }
    }
}
