import QtQuick
import QtQuick.Templates as T
import Ospra.Theme

/// A small window inside the window, in its middle and over everything else, until it is closed. It is bound to a state:
/// it is open while `isShown` is set, and when the user closes it `dismissed` asks for the change.
T.Popup {
    id: root

    property bool isShown: false

    /// The user closed the dialog.
    signal dismissed

    parent: T.Overlay.overlay
    x: root.parent ? Math.round((root.parent.width - root.width) / 2) : 0
    y: root.parent ? Math.round((root.parent.height - root.height) / 2) : 0
    implicitWidth: root.implicitContentWidth + root.leftPadding + root.rightPadding
    implicitHeight: root.implicitContentHeight + root.topPadding + root.bottomPadding
    modal: true
    dim: true
    focus: true
    closePolicy: T.Popup.CloseOnEscape

    onIsShownChanged: root.isShown ? root.open() : root.close()
    onClosed: if (root.isShown) root.dismissed()
    Component.onCompleted: if (root.isShown) root.open()

    background: MenuGround {
        radius: Theme.radiusDialog
    }

    // What lies behind steps back, so that the words of two screens are not read as one.
    T.Overlay.modal: Rectangle {
        color: Theme.scrim

        Behavior on opacity {
            NumberAnimation { duration: Theme.menuDuration }
        }
    }

    enter: Transition {
        NumberAnimation { property: "opacity"; from: 0; to: 1; duration: Theme.menuDuration; easing.type: Easing.OutCubic }
    }

    exit: Transition {
        NumberAnimation { property: "opacity"; from: 1; to: 0; duration: Theme.menuDuration; easing.type: Easing.OutCubic }
    }
}
