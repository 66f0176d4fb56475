import QtQuick
import QtQuick.Templates as T
import Ospra.Controls
import Ospra.Theme

/// A long text on a card that scrolls by wheel and keys; its words can be selected and copied.
Rectangle {
    id: root

    property alias text: words.text

    implicitHeight: Theme.scaled(220)
    radius: Theme.radiusCard
    color: Theme.card
    border.color: words.activeFocus ? Theme.focusRing : Theme.cardEdge
    border.width: words.activeFocus ? Theme.focusRingWidth : Theme.isHighContrast ? Theme.lineWidth : 0

    Flickable {
        id: flickable

        anchors.fill: parent
        anchors.margins: Theme.space10
        contentHeight: words.height
        boundsBehavior: Flickable.StopAtBounds
        clip: true

        TextEdit {
            id: words

            width: flickable.width - Theme.space8
            readOnly: true
            activeFocusOnTab: true
            selectByMouse: true
            selectByKeyboard: true
            textFormat: TextEdit.PlainText
            wrapMode: TextEdit.Wrap
            color: Theme.text
            selectionColor: Theme.accentFill
            selectedTextColor: Theme.textOnAccent
            font.family: Theme.fontFamily
            font.pointSize: Theme.subheadline.pointSize
            onCursorRectangleChanged: flickable.reveal(cursorRectangle)

            Accessible.role: Accessible.EditableText
            Accessible.readOnly: true
            Accessible.name: "License"
        }

        /// Scrolls the cursor into view.
        function reveal(cursor: rect) {
            const lowest = cursor.y + cursor.height - flickable.height;
            flickable.contentY = Math.max(0, Math.min(Math.max(flickable.contentY, lowest), cursor.y));
        }

        T.ScrollBar.vertical: ScrollBar { }
    }
}
