import QtQuick
import Ospra.Controls
import Ospra.Theme

/// The upright line between two groups of the toolbar.
Divider {
    isVertical: true
    anchors.verticalCenter: parent ? parent.verticalCenter : undefined
    height: Theme.scaled(16)
}
