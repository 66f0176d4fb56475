import QtQuick
import Ospra.Theme

/// Text in one of the theme's styles. Stands in the style's line, whatever height the font's glyphs have.
Text {
    id: root

    property TextStyle textStyle: Theme.body
    // Digits that are all equally wide, for numbers that change or stand below each other.
    property bool isTabular: false

    color: Theme.text
    font.family: root.isTabular ? Theme.tabularFontFamily : Theme.fontFamily
    font.pointSize: root.textStyle.pointSize
    font.weight: root.textStyle.weight
    lineHeightMode: Text.FixedHeight
    lineHeight: root.textStyle.lineHeight
    topPadding: root.textStyle.rise
    bottomPadding: -root.topPadding
    textFormat: Text.PlainText

    Accessible.role: Accessible.StaticText
    Accessible.name: root.text
    Accessible.ignored: root.text === ""
}
