pragma Singleton
import QtQuick
import Ospra.Desktop

/// Every colour, size, text style and duration of the program.
DataColors {
    id: root

    readonly property string fontFamily: Appearance.fontFamily
    readonly property string tabularFontFamily: Appearance.tabularFontFamily

    readonly property TextStyle caption2: TextStyle { size: 10; line: 13 }
    readonly property TextStyle caption: TextStyle { size: 10.5; line: 14 }
    readonly property TextStyle subheadline: TextStyle { size: 12; line: 16 }
    readonly property TextStyle body: TextStyle { size: 13; line: 18 }
    readonly property TextStyle headline: TextStyle { size: 14; line: 18; weight: Font.DemiBold }
    readonly property TextStyle title: TextStyle { size: 22; line: 28; weight: Font.DemiBold }
    readonly property TextStyle attribution: TextStyle { size: 9; line: 12 }

    // What holds text grows with it; the rest stays.
    readonly property real scale: Math.max(0.75, Appearance.fontSize / 13)

    readonly property int space2: 2
    readonly property int space4: 4
    readonly property int space6: 6
    readonly property int space8: 8
    readonly property int space10: 10
    readonly property int space12: 12
    readonly property int space14: 14
    readonly property int space16: 16
    readonly property int space20: 20
    readonly property int padding: 12
    readonly property int cardPadding: 10

    readonly property int radiusCell: 2
    readonly property int radiusMarker: 3
    readonly property int radiusLabel: 4
    readonly property int radiusItem: 5
    readonly property int radiusControl: 6
    readonly property int radiusCard: 8
    readonly property int radiusMenu: 9
    readonly property int radiusDialog: 12

    readonly property real lineWidth: 1
    readonly property real chartLine: 1.5
    readonly property real chartLineCompanion: 1.2
    readonly property int focusRingWidth: root.isHighContrast ? 3 : 2
    readonly property int focusRingGap: 2
    readonly property int shadowBlur: 32
    readonly property int shadowOffset: 12

    readonly property int iconSmall: root.scaled(16)
    readonly property int iconToolbar: root.scaled(18)
    readonly property int iconAlert: root.scaled(28)
    readonly property int iconEmpty: root.scaled(40)
    readonly property int iconWelcome: root.scaled(56)
    // Between icon and text of a prominent button.
    readonly property int iconGap: 7
    readonly property real iconMap: 11.5
    readonly property real iconMapSmall: 10
    readonly property int mapChipPadding: 3
    readonly property int mapDot: 14
    readonly property int markerSize: 8
    readonly property int markerSizeSmall: 6

    readonly property int menuBarHeight: root.scaled(28)
    readonly property int toolbarHeight: root.scaled(46)
    readonly property int controlHeight: root.scaled(26)
    readonly property int prominentHeight: root.scaled(32)
    readonly property int segmentHeight: root.scaled(24)
    readonly property int segmentMinimum: root.scaled(46)
    readonly property int menuItemHeight: root.scaled(27)
    readonly property int menuPadding: 5
    readonly property int menuItemPadding: 7
    readonly property int menuColumn: root.scaled(22)
    readonly property int barRowHeight: root.scaled(24)
    readonly property int sidebarRowHeight: root.scaled(30)
    readonly property int sidebarJumpHeight: root.scaled(44)
    readonly property int sidebarWidth: root.scaled(220)
    readonly property int sidebarMinimum: root.scaled(196)
    readonly property int alertWidth: root.scaled(224)
    readonly property int settingsWidth: root.scaled(300)
    readonly property int aboutWidth: root.scaled(300)
    readonly property int aboutWideWidth: root.scaled(460)
    readonly property int emptyStateWidth: root.scaled(320)
    readonly property int spinnerSize: root.scaled(20)
    readonly property int chartRowMinimum: root.scaled(122)
    readonly property int readingNameMaximum: root.scaled(96)
    readonly property int trackNameMaximum: root.scaled(160)
    readonly property int splitterGrip: 7
    readonly property int scrollBarWidth: 4
    readonly property int scrollBarInset: 3
    readonly property int fadeWidth: 48
    readonly property int windowMinimumWidth: 900
    readonly property int windowMinimumHeight: 560
    readonly property int chartsMinimum: 400
    readonly property int mapMinimum: 300

    readonly property int hoverDuration: root.duration(80)
    readonly property int toggleDuration: root.duration(120)
    readonly property int menuDuration: root.duration(100)
    readonly property int modeDuration: root.duration(200)
    readonly property int rangeDuration: root.duration(250)
    readonly property int cameraDuration: root.duration(250)
    // Fading one picture into another is no motion, but it is kept short where motion is unwanted.
    readonly property int crossFadeDuration: Appearance.isMotionReduced ? 80 : 200
    readonly property int spinnerDelay: 150
    readonly property int toolTipDelay: 500

    /// A height or width that holds text, for the desktop's font size: whole pixels.
    function scaled(size: real): int {
        return Math.round(size * root.scale);
    }

    function duration(milliseconds: int): int {
        return Appearance.isMotionReduced ? 0 : milliseconds;
    }
}
