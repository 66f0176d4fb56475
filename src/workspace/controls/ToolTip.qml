import QtQuick
import QtQuick.Templates as T
import Ospra.Theme

/// A few words about the control below the pointer.
T.ToolTip {
    id: root

    x: root.parent ? Math.round((root.parent.width - root.implicitWidth) / 2) : 0
    y: root.parent ? root.parent.height + Theme.space6 : 0
    implicitWidth: root.implicitContentWidth + root.leftPadding + root.rightPadding
    implicitHeight: root.implicitContentHeight + root.topPadding + root.bottomPadding
    margins: Theme.space6
    horizontalPadding: Theme.space8
    verticalPadding: Theme.space4
    delay: Theme.toolTipDelay
    closePolicy: T.Popup.CloseOnEscape | T.Popup.CloseOnPressOutsideParent | T.Popup.CloseOnReleaseOutsideParent

    enter: Transition {
        NumberAnimation { property: "opacity"; from: 0; to: 1; duration: Theme.menuDuration }
    }

    contentItem: Label {
        text: root.text
        textStyle: Theme.subheadline
        wrapMode: Text.Wrap
    }

    background: MenuGround {
        radius: Theme.radiusControl
    }
}
