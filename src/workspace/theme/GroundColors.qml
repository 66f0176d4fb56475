import QtQuick
import Ospra.Desktop

/// The colours of grounds, lines, text and states.
QtObject {
    id: root

    readonly property bool isDark: Appearance.isDark
    readonly property bool isHighContrast: Appearance.isHighContrast

    // The blue-blacks and the white from which lines and fills are thinned.
    readonly property color ink: root.isDark ? "#FFFFFF" : "#161C28"

    readonly property color chrome: root.choose("#1E2126", "#F2F3F6", "#000000", "#FFFFFF")
    readonly property color sidebar: root.chrome
    readonly property color content: root.choose("#15171B", "#FFFFFF", "#000000", "#FFFFFF")
    readonly property color barMaterial: root.choose("#191C20", "#FAFAFB", "#000000", "#FFFFFF")
    readonly property color quaternary: Qt.alpha(root.isDark ? "#DCE6FF" : "#2E3848", 0.18)
    readonly property color card: root.isHighContrast ? root.content : Qt.alpha(root.quaternary, 0.18 * 0.3)
    readonly property color cardEdge: root.isHighContrast ? root.textTertiary : "transparent"
    readonly property color separator: root.isHighContrast ? root.textTertiary : Qt.alpha(root.ink, root.isDark ? 0.09 : 0.11)
    readonly property color gridLine: Qt.alpha(root.ink, root.isDark ? 0.055 : 0.075)
    readonly property color control: Qt.alpha(root.ink, root.isDark ? 0.075 : 0.06)
    readonly property color controlRaised: root.isDark ? "#4A505B" : "#FFFFFF"
    readonly property color controlEdge: root.cardEdge
    readonly property color controlShadow: root.isDark ? "transparent" : Qt.alpha("#000000", 0.16)
    readonly property color hover: Qt.alpha(root.ink, root.isDark ? 0.06 : 0.05)
    readonly property color pressed: Qt.alpha(root.ink, root.isDark ? 0.10 : 0.09)
    readonly property color menu: root.choose("#272B31", "#FFFFFF", "#000000", "#FFFFFF")
    readonly property color menuEdge: root.isHighContrast ? root.textTertiary : Qt.alpha(root.ink, root.isDark ? 0.12 : 0.14)
    // Over the window, behind a dialog.
    readonly property color scrim: Qt.alpha("#000000", root.isDark ? 0.45 : 0.25)
    readonly property color menuShadow: Qt.alpha("#000000", root.isDark ? 0.55 : 0.18)

    readonly property color text: root.choose("#F1F3F7", "#16181D", "#FFFFFF", "#000000")
    readonly property color textSecondary: root.choose("#ABB2BE", "#4A5260", "#D6DAE2", "#2B313B")
    readonly property color textTertiary: root.choose("#8A92A0", "#5F626A", "#B9C0CC", "#454B57")
    readonly property color disabled: Qt.alpha(root.text, 0.38)
    readonly property color textOnAccent: "#FFFFFF"

    readonly property color accent: Appearance.hasAccent ? Appearance.readableAccent([root.content, root.chrome, root.menu], root.accentTint) : root.choose("#6CAEFF", "#1A5CC4", "#8FC3FF", "#0B4DB8")
    readonly property color accentFill: Appearance.hasAccent ? Appearance.accentUnderWhite() : root.isDark ? "#2F6FD0" : "#1F66D6"
    readonly property real accentTint: root.isDark ? 0.20 : 0.12
    readonly property color onTint: Qt.alpha(root.isDark ? root.accent : root.accentFill, root.accentTint)
    readonly property color onEdge: root.accent
    readonly property color selection: Qt.alpha(root.isDark ? root.accent : root.accentFill, root.isDark ? 0.20 : 0.13)
    // The selection in a window that is in the background.
    readonly property color selectionInactive: root.control
    readonly property color focusRing: Qt.alpha(root.accent, 0.75)

    /// The value for the appearance of the moment; high contrast has two of its own.
    function choose(dark: color, light: color, highDark: color, highLight: color): color {
        if (root.isHighContrast)
            return root.isDark ? highDark : highLight;
        return root.isDark ? dark : light;
    }
}
