import QtQuick
import QtQuick.Templates as T
import Ospra.Theme

/// The line between two groups of entries.
T.MenuSeparator {
    id: root

    implicitWidth: 2 * Theme.space8
    implicitHeight: root.implicitContentHeight + root.topPadding + root.bottomPadding
    horizontalPadding: Theme.space8
    verticalPadding: Theme.menuPadding

    contentItem: Divider { }
}
