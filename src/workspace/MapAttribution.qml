import QtQuick
import Ospra.Controls
import Ospra.Theme

/// Whose imagery and data the map shows; the names are links.
Rectangle {
    id: root

    property alias text: words.text
    required property real greatestWidth

    width: words.width
    height: words.height
    visible: root.text !== ""
    color: Theme.attributionGround

    Label {
        id: words

        width: Math.min(Math.ceil(implicitWidth), root.greatestWidth)
        leftPadding: Theme.space6
        rightPadding: Theme.space6
        topPadding: Theme.space2 + textStyle.rise
        bottomPadding: Theme.space2 - textStyle.rise
        textStyle: Theme.attribution
        textFormat: Text.StyledText
        wrapMode: Text.WordWrap
        horizontalAlignment: Text.AlignRight
        color: Theme.mapText
        linkColor: Theme.mapText
        onLinkActivated: link => Qt.openUrlExternally(link)

        HoverHandler {
            cursorShape: words.hoveredLink !== "" ? Qt.PointingHandCursor : Qt.ArrowCursor
        }
    }
}
