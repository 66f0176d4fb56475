import QtQuick.Templates as T
import Ospra.Theme

/// The window of the program. Menus and dialogs in it give the keyboard's focus back where they took it from.
T.ApplicationWindow {
    color: Theme.content
    minimumWidth: Theme.windowMinimumWidth
    minimumHeight: Theme.windowMinimumHeight
    font.family: Theme.fontFamily
    font.pointSize: Theme.body.pointSize
}
