pragma ComponentBehavior: Bound
import QtQuick
import Ospra.Overview
import Ospra.Theme

/// The cards with the headline numbers, as many in a row as there is room for.
Grid {
    id: root

    required property OverviewState overview
    readonly property int cardMinimum: Math.max(170, Theme.scaled(170))
    readonly property real step: (root.width + root.spacing) / root.columns

    // The card that Tab stops at; the arrows go from card to card.
    property int tabStop: 0

    function move(by: int) {
        const from = cards.itemAt(root.tabStop) as OverviewKpiCard;
        const to = cards.itemAt(root.tabStop + by) as OverviewKpiCard;
        if (from && from.isFocused && to)
            to.takeFocus();
    }

    columns: Math.max(1, Math.floor((root.width + root.spacing) / (root.cardMinimum + root.spacing)))
    spacing: Theme.space10

    Keys.onLeftPressed: root.move(-1)
    Keys.onRightPressed: root.move(1)

    Repeater {
        id: cards

        model: root.overview.headlines

        OverviewKpiCard {
            required property int index
            readonly property int column: index % root.columns

            isTabStop: index === root.tabStop
            onIsFocusedChanged: if (isFocused) root.tabStop = index
            // Whole pixels, so that the last card ends where the grid does.
            width: Math.round((column + 1) * root.step) - Math.round(column * root.step) - root.spacing
        }
    }
}
