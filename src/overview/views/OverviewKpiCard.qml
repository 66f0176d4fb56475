import QtQuick
import Ospra.Controls
import Ospra.Theme

/// One number of the overview with its name. The number can be copied.
Card {
    id: root

    required property string title
    required property string value

    property bool isTabStop: true
    readonly property bool isFocused: target.activeFocus

    /// Takes the keyboard's focus, as by a key.
    function takeFocus() {
        target.forceActiveFocus(Qt.TabFocusReason);
    }

    inset: Theme.cardPadding
    spacing: Theme.space4

    CopyTarget {
        id: target

        parent: root
        width: root.width
        height: root.height
        copyText: root.value
        isTabStop: root.isTabStop
        radius: root.radius
        Accessible.name: root.title + ": " + root.value
    }

    TextMetrics {
        id: fullSize

        font: Theme.headline.tabularFont
        text: root.value
    }

    Label {
        width: parent.width
        text: root.title
        textStyle: Theme.caption
        color: Theme.textSecondary
        elide: Text.ElideRight
        Accessible.ignored: true
    }

    // Shrinks a little before it loses anything.
    Label {
        readonly property real fit: width / (fullSize.advanceWidth + 1)

        width: parent.width
        text: root.value
        textStyle: Theme.headline
        isTabular: true
        font.pointSize: Theme.headline.pointSize * Math.max(0.8, Math.min(1, fit))
        elide: Text.ElideRight
        Accessible.ignored: true
    }
}
