import QtQuick
import Ospra.Controls
import Ospra.Overview
import Ospra.Theme

/// Range and mode of the overview, and the way back from a selected day.
Flow {
    id: root

    required property OverviewState overview

    signal clearDay

    spacing: Theme.space20

    SegmentedControl {
        id: range

        label: "Range"
        options: root.overview.rangeNames
        currentIndex: root.overview.rangeIndex
        onActivated: index => root.overview.chooseRange(index)
    }

    SegmentedControl {
        label: "Mode"
        options: root.overview.modeNames
        currentIndex: root.overview.modeIndex
        onActivated: index => root.overview.chooseMode(index)
    }

    Button {
        height: range.height
        visible: root.overview.hasSelectedDay
        kind: Button.Borderless
        text: "Clear Day Filter"
        onClicked: root.clearDay()
        onVisibleChanged: if (!visible) focus = false
    }
}
