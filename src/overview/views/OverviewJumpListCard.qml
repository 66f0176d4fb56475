pragma ComponentBehavior: Bound
import QtQuick
import Ospra.Controls
import Ospra.Overview
import Ospra.Theme

/// A short list of jumps that open with one click.
Card {
    id: root

    required property string title
    required property string subtitle
    required property TextRowsModel jumps
    // How much of the card is to be seen, from 0 to 1.
    property real openness: 1

    /// The user wants the jump of this row.
    signal opened(int row)

    clip: heightChange.running

    Accessible.role: Accessible.List
    Accessible.name: root.title

    Behavior on height {
        enabled: root.openness === 1

        NumberAnimation {
            id: heightChange

            duration: Theme.modeDuration
            easing.type: Easing.InOutQuad
        }
    }

    CardHeader {
        width: parent.width
        title: root.title
        subtitle: root.subtitle
    }

    Label {
        visible: lines.count === 0
        text: "No jumps"
        textStyle: Theme.caption
        color: Theme.textSecondary
    }

    Repeater {
        id: lines

        model: root.jumps

        JumpLine {
            required property int index

            width: root.width - 2 * root.inset
            onClicked: root.opened(index)
        }
    }
}
