import QtQuick
import Ospra.Controls
import Ospra.Theme

/// The first line of a card: its title, a few words on it and, at the other end, a read-out.
Item {
    id: root

    required property string title
    required property string subtitle
    property string readOut: ""
    property color readOutColor: Theme.text

    implicitHeight: title.height

    Label {
        id: title

        text: root.title
        textStyle: Theme.headline
        Accessible.role: Accessible.Heading
    }

    Label {
        id: subtitle

        x: title.width + Theme.space8
        anchors.verticalCenter: title.verticalCenter
        width: Math.min(Math.ceil(implicitWidth), root.width - x)
        text: root.subtitle
        textStyle: Theme.caption
        isTabular: true
        color: Theme.textSecondary
        elide: Text.ElideRight
    }

    Label {
        anchors.right: parent.right
        anchors.verticalCenter: title.verticalCenter
        visible: root.readOut !== ""
        text: root.readOut
        textStyle: Theme.caption
        isTabular: true
        color: root.readOutColor
    }
}
