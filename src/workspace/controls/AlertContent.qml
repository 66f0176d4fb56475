import QtQuick
import QtQuick.Templates as T
import Ospra.Theme

/// Icon, title, message and button of an alert; a message too long for the window scrolls.
Column {
    id: root

    required property string title
    required property string message
    required property real longestMessage
    required property bool isOpen

    signal accepted

    spacing: 7

    onIsOpenChanged: if (root.isOpen) button.forceActiveFocus(Qt.TabFocusReason)

    Keys.onUpPressed: bar.decrease()
    Keys.onDownPressed: bar.increase()

    Accessible.role: Accessible.AlertMessage
    Accessible.name: root.title
    Accessible.description: root.message

    Item {
        width: parent.width
        height: Theme.iconAlert + 3

        Icon {
            anchors.horizontalCenter: parent.horizontalCenter
            name: "warning"
            size: Theme.iconAlert
            color: Theme.orange
        }
    }

    Label {
        width: parent.width
        text: root.title
        textStyle: Theme.headline
        horizontalAlignment: Text.AlignHCenter
        wrapMode: Text.Wrap
    }

    Flickable {
        id: flickable

        // The bar stands in the padding, beside the text.
        width: parent.width + Theme.space12
        height: Math.min(message.implicitHeight, root.longestMessage)
        contentHeight: message.implicitHeight
        boundsBehavior: Flickable.StopAtBounds
        interactive: flickable.contentHeight > flickable.height
        clip: flickable.interactive

        Label {
            id: message

            width: root.width
            text: root.message
            textStyle: Theme.subheadline
            color: Theme.textSecondary
            horizontalAlignment: Text.AlignHCenter
            wrapMode: Text.Wrap
        }

        T.ScrollBar.vertical: ScrollBar { id: bar }
    }

    Item {
        width: 1
        height: 1
    }

    Button {
        id: button

        width: parent.width
        text: qsTr("OK")
        kind: Button.Prominent
        onClicked: root.accepted()
    }
}
