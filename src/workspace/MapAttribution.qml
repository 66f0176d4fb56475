import QtQuick
import Ospra.Controls
import Ospra.Theme

/// Whose imagery and data the map shows; the names are links.
Rectangle {
    id: root

    required property string text
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
        text: "<style>a { color: " + Theme.mapText + "; text-decoration: none }</style>" + root.text
        textFormat: Text.RichText
        wrapMode: Text.WordWrap
        horizontalAlignment: Text.AlignRight
        color: Theme.mapText
        Accessible.name: root.text.replace(/<[^>]*>/g, "")
        onLinkActivated: link => Qt.openUrlExternally(link)

        HoverHandler {
            cursorShape: words.hoveredLink !== "" ? Qt.PointingHandCursor : Qt.ArrowCursor
        }
    }
}
