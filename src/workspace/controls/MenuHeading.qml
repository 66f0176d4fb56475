import QtQuick
import Ospra.Theme

/// The title of the entries below it.
Item {
    id: root

    required property string text

    implicitWidth: label.implicitWidth + Theme.space16
    implicitHeight: Theme.scaled(23)

    Label {
        id: label

        x: Theme.space8
        y: Math.ceil((root.height - height) / 2)
        text: root.text
        textStyle: Theme.caption
        font.weight: Font.DemiBold
        color: Theme.textSecondary
    }
}
