import QtQuick

/// The colours that carry meaning: jumpers, series, the map and the heatmap. None of them follows the desktop's accent.
GroundColors {
    id: root

    readonly property color white: "#FFFFFF"
    readonly property color yellow: root.choose("#F0C419", "#805D00", "#FFDF5A", "#6B4D00")
    readonly property color cyan: root.choose("#4FC1F0", "#0068A2", "#7AD4FF", "#00507F")
    readonly property color pink: root.choose("#FF6690", "#C9156A", "#FF8FB0", "#8C0048")
    readonly property color mint: root.choose("#7DF0B2", "#00633F", "#98FFCB", "#004C30")
    readonly property color indigo: root.choose("#9885FF", "#5428C8", "#B8ABFF", "#3D14A3")
    readonly property color blue: root.isDark ? "#62ADFF" : "#1A63E0"
    readonly property color green: root.isDark ? "#6FDC7C" : "#12793A"
    readonly property color red: root.isDark ? "#FA625C" : "#B81A14"
    readonly property color purple: root.isDark ? "#C183EA" : "#8420BC"
    readonly property color orange: root.isDark ? "#FFA64D" : "#B54E00"
    readonly property color teal: root.isDark ? "#24D3C6" : "#00685F"
    readonly property color primaryTrack: root.isDark ? "#FFFFFF" : root.textTertiary

    // A ring inside a jumper's dot, so that the white one shows on a light ground.
    readonly property color dotRing: root.isDark ? "transparent" : Qt.alpha("#161C28", 0.5)

    // The imagery is dark whatever the desktop looks like, and so the map keeps the dark values.
    readonly property color mapGround: root.isDark ? "#2C3336" : "#46535A"
    readonly property color mapGrid: Qt.alpha("#FFFFFF", 0.10)
    readonly property color mapText: "#FFFFFF"
    readonly property color mapHalo: Qt.alpha("#090C12", 0.92)
    readonly property color mapChip: Qt.alpha("#FFFFFF", 0.8)
    readonly property color mapExit: "#B81A14"
    readonly property color mapLanding: "#12793A"
    readonly property color mapJumpRun: "#F0C419"
    readonly property color mapDotEdge: "#000000"
    readonly property color mapCaptionGround: Qt.alpha("#000000", 0.6)
    readonly property color mapScaleHalo: Qt.alpha("#090C12", 0.55)
    readonly property color attributionGround: Qt.alpha("#000000", 0.45)

    readonly property list<color> heatLevels: [Qt.alpha("#FFFFFF", 0.05), Qt.alpha(root.green, 0.3), Qt.alpha(root.green, 0.5), Qt.alpha(root.green, 0.7), Qt.alpha(root.green, 0.9)]
    readonly property color heatEmptyEdge: root.isDark ? "transparent" : Qt.alpha("#161C28", 0.09)
    readonly property color heatSelected: Qt.alpha("#FFFFFF", 0.9)
    readonly property color heatSelectedRing: root.isDark ? Qt.alpha("#000000", 0.55) : root.text
    readonly property real heatSelectedRingWidth: root.isDark ? 1 : 1.5
    readonly property color monthLine: Qt.alpha("#FFFFFF", 0.18)
    readonly property color monthLineUnder: root.isDark ? "transparent" : Qt.alpha("#161C28", 0.20)

    /// All colours that the logic names, in the order of NamedColor.
    readonly property list<color> palette: [root.white, root.yellow, root.cyan, root.pink, root.mint, root.indigo, root.blue, root.green, root.red, root.purple, root.orange, root.teal, root.primaryTrack]

    /// The same in the dark values, as the map draws them in both appearances.
    readonly property list<color> mapPalette: ["#FFFFFF", "#F0C419", "#4FC1F0", "#FF6690", "#7DF0B2", "#9885FF", "#62ADFF", "#6FDC7C", "#FA625C", "#C183EA", "#FFA64D", "#24D3C6", "#FFFFFF"]

    /// The colour of a name that the logic uses, in the appearance of the moment.
    /// @param name a value of NamedColor
    function named(name: int): color {
        return root.palette[name];
    }

    /// The same in the dark value.
    function mapNamed(name: int): color {
        return root.mapPalette[name];
    }
}
