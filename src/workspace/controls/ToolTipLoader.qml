pragma ComponentBehavior: Bound
import QtQuick

/// Makes the tooltip of its parent when it is first wanted.
Loader {
    id: root

    required property string text
    required property bool isShown

    anchors.fill: root.parent
    active: false

    onIsShownChanged: if (root.isShown && root.text !== "") root.active = true

    sourceComponent: ToolTip {
        text: root.text
        visible: root.isShown && root.text !== ""
    }
}
