import QtQuick
import Ospra.Controls
import Ospra.Theme

/// One key number with its label, and before them the dot that separates it from the one before.
Row {
    id: root

    required property string label
    required property string value
    required property real valueWidth
    required property bool hasSeparator
    required property TextStyle textStyle

    Label {
        visible: root.hasSeparator
        leftPadding: Theme.space6
        rightPadding: Theme.space6
        text: "·"
        textStyle: root.textStyle
        color: Theme.quaternary
        Accessible.ignored: true
    }

    Label {
        rightPadding: Theme.space4
        text: root.label
        textStyle: root.textStyle
        color: Theme.textSecondary
        Accessible.ignored: true
    }

    Label {
        width: root.valueWidth
        text: root.value
        textStyle: root.textStyle
        font.weight: Font.Medium
        isTabular: true
        Accessible.name: root.label + " " + root.value
    }
}
