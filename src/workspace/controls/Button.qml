import QtQuick
import QtQuick.Templates as T
import Ospra.Theme

/// A button with an icon (`icon.name`), text or both.
T.Button {
    id: root

    enum Kind {
        Normal, // on the ground of controls
        Plain, // on no ground until the pointer is over it
        Prominent, // filled with the accent; the one that the screen is for
        Borderless // text in the accent, no ground
    }

    property int kind: Button.Normal
    // Shown after a while of hovering; also what a screen reader says where there is no text.
    property string toolTip: ""
    property bool hasChevron: false
    property color textColor: root.isProminent ? Theme.textOnAccent : root.kind === Button.Borderless ? Theme.accent : Theme.text
    property color iconColor: root.isProminent ? Theme.textOnAccent : root.kind === Button.Borderless ? Theme.accent : Theme.textSecondary
    property color groundColor: root.isProminent ? Theme.accentFill : root.kind === Button.Normal ? Theme.control : "transparent"
    property color edgeColor: root.kind === Button.Normal ? Theme.controlEdge : "transparent"
    readonly property bool isIconAlone: root.text === "" && (root.kind === Button.Plain || !root.hasChevron)
    readonly property bool isProminent: root.kind === Button.Prominent

    /// Does what a click would do.
    function press() {
        if (root.action)
            root.action.trigger(root);
        else
            root.clicked();
    }

    implicitWidth: root.implicitContentWidth + root.leftPadding + root.rightPadding
    implicitHeight: root.isProminent ? Theme.prominentHeight : Theme.controlHeight
    horizontalPadding: root.isProminent ? Theme.space14 : root.kind === Button.Borderless ? Theme.space4 : root.icon.name !== "" ? Theme.space8 : Theme.space10
    verticalPadding: 0
    opacity: root.enabled ? 1 : 0.38
    focusPolicy: Qt.StrongFocus
    hoverEnabled: true

    Accessible.role: Accessible.Button
    Accessible.name: root.text !== "" ? root.text : root.toolTip
    Accessible.onPressAction: root.press()
    Keys.onReturnPressed: root.press()
    Keys.onEnterPressed: root.press()

    contentItem: ButtonFace {
        iconName: root.icon.name
        text: root.text
        textColor: root.textColor
        iconColor: root.iconColor
        hasChevron: root.hasChevron
        iconSize: root.isIconAlone ? Theme.iconToolbar : Theme.iconSmall
        gap: root.isProminent ? Theme.iconGap : root.isIconAlone ? Theme.space2 : Theme.space6
    }

    background: ButtonGround {
        control: root
        groundColor: root.groundColor
        edgeColor: root.edgeColor
        isHovered: root.hovered && root.kind !== Button.Borderless
        isPressed: root.down && root.kind !== Button.Borderless
    }

    ToolTipLoader {
        text: root.toolTip
        isShown: root.hovered && !root.down
    }
}
