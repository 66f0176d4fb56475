import QtQuick
import QtQuick.Templates as T
import Ospra.Theme

/// The row of menu titles at the top of the window.
T.MenuBar {
    id: root

    // Whether the titles underline the letters that open them with Alt.
    property bool showsLetters: false

    implicitWidth: root.implicitContentWidth + root.leftPadding + root.rightPadding
    implicitHeight: Theme.menuBarHeight
    leftPadding: 7
    rightPadding: 7
    verticalPadding: 3
    spacing: Theme.space2
    delegate: MenuBarItem { }

    // A binding in the delegate could not see the bar: the toolkit makes its items in a context of their own.
    onShowsLettersChanged: {
        for (let index = 0; index < root.count; ++index)
            (root.itemAt(index) as MenuBarItem).showsLetter = root.showsLetters;
    }

    Accessible.role: Accessible.MenuBar

    contentItem: Row {
        spacing: root.spacing

        Repeater {
            model: root.contentModel
        }
    }

    background: Rectangle {
        color: Theme.chrome
    }
}
