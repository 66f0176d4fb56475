import QtQuick
import Ospra.Controls
import Ospra.Theme

/// What one jumper's line reads under the cursor.
Row {
    id: root

    required property string name
    required property color nameColor
    required property string value

    spacing: Theme.space4

    Label {
        anchors.baseline: value.baseline
        width: Math.min(Math.ceil(implicitWidth), Theme.readingNameMaximum)
        elide: Text.ElideRight
        text: root.name
        textStyle: Theme.caption2
        font.weight: Font.Medium
        color: root.nameColor
        Accessible.ignored: true
    }

    Label {
        id: value

        text: root.value
        textStyle: Theme.caption
        font.weight: Font.Medium
        isTabular: true
        Accessible.name: root.name + " " + root.value
    }
}
