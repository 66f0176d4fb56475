import QtQuick
import Ospra.Controls
import Ospra.Theme

/// How long a length on the ground is on the map: white with a dark halo, over any imagery.
Item {
    id: root

    required property real length
    required property string text
    readonly property real tickHeight: 5

    width: Math.max(root.length, words.width)
    height: words.height + root.tickHeight
    visible: root.length > 0
    Accessible.role: Accessible.StaticText
    Accessible.name: root.text

    Label {
        id: words

        x: Theme.space4
        text: root.text
        textStyle: Theme.caption2
        font.weight: Font.DemiBold
        color: Theme.mapText
        style: Text.Outline
        styleColor: Theme.mapHalo
        Accessible.ignored: true
    }

    MapScaleBracket {
        y: words.height
        width: root.length
        height: root.tickHeight
        halo: 1
        color: Theme.mapScaleHalo
    }

    MapScaleBracket {
        y: words.height
        width: root.length
        height: root.tickHeight
        color: Theme.mapText
    }
}
