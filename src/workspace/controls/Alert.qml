import QtQuick
import Ospra.Theme

/// Tells the user of a failure. Return, Space, Escape or a click on its button dismiss it.
Dialog {
    id: root

    property string title: ""
    property string message: ""

    width: Theme.alertWidth
    padding: Theme.space16
    topPadding: Theme.space20

    contentItem: AlertContent {
        title: root.title
        message: root.message
        longestMessage: root.parent ? Math.max(Theme.body.lineHeight, root.parent.height - Theme.scaled(220)) : 0
        isOpen: root.opened
        onAccepted: root.close()
    }
}
