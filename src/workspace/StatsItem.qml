import QtQuick
import Ospra.Controls
import Ospra.Theme

/// One key number with its label, and before them the dot that separates it from the one before. The number can be
/// copied.
Row {
    id: root

    required property string label
    required property string value
    required property real valueWidth
    required property bool hasSeparator
    required property TextStyle textStyle
    property bool isTabStop: true
    readonly property bool isFocused: target.activeFocus

    /// Takes the keyboard's focus, as by a key.
    function takeFocus() {
        target.forceActiveFocus(Qt.TabFocusReason);
    }

    Label {
        visible: root.hasSeparator
        leftPadding: Theme.space6
        rightPadding: Theme.space6
        text: "·"
        textStyle: root.textStyle
        color: Theme.quaternary
        Accessible.ignored: true
    }

    Item {
        width: words.width
        height: words.height

        CopyTarget {
            id: target

            anchors.fill: parent
            anchors.leftMargin: -Theme.space2
            anchors.rightMargin: -Theme.space2
            copyText: root.value
            isTabStop: root.isTabStop
            radius: Theme.radiusLabel
            Accessible.name: root.label + " " + root.value
        }

        Row {
            id: words

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
                Accessible.ignored: true
            }
        }
    }
}
