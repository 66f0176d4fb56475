import QtQuick

/// The tooltip that a loader has made.
ToolTip {
    id: root

    required property ToolTipLoader owner

    parent: root.owner
    text: root.owner.text
    visible: root.owner.isShown && root.owner.text !== ""
}
