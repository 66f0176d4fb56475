pragma ComponentBehavior: Bound
import QtQuick
import Ospra.Controls
import Ospra.Theme

/// Names below a heading.
Column {
    id: root

    required property string title
    required property list<string> lines

    spacing: Theme.space2

    Label {
        width: root.width
        text: root.title
        textStyle: Theme.caption
        font.weight: Font.DemiBold
        color: Theme.textSecondary
        horizontalAlignment: Text.AlignHCenter
    }

    Repeater {
        model: root.lines

        Label {
            required property string modelData

            width: root.width
            text: modelData
            textStyle: Theme.subheadline
            horizontalAlignment: Text.AlignHCenter
            wrapMode: Text.Wrap
        }
    }
}
