import QtQuick
import QtQuick.Templates as T
import Ospra.Theme

/// A quiet bar near the edge: `T.ScrollBar.vertical: ScrollBar { }` in a Flickable.
T.ScrollBar {
    id: root

    implicitWidth: root.implicitContentWidth + root.leftPadding + root.rightPadding
    implicitHeight: root.implicitContentHeight + root.topPadding + root.bottomPadding
    padding: Theme.scrollBarInset
    minimumSize: 0.08
    visible: root.policy === T.ScrollBar.AlwaysOn || (root.policy === T.ScrollBar.AsNeeded && root.size < 1)

    contentItem: Rectangle {
        implicitWidth: Theme.scrollBarWidth
        implicitHeight: Theme.scrollBarWidth
        radius: Theme.scrollBarWidth / 2
        color: root.pressed || root.hovered ? Theme.textTertiary : Theme.quaternary

        Behavior on color {
            ColorAnimation { duration: Theme.hoverDuration }
        }
    }
}
