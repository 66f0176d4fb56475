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

    columns: Math.max(1, Math.floor((root.width + root.spacing) / (root.cardMinimum + root.spacing)))
    spacing: Theme.space10

    Repeater {
        model: root.overview.headlines

        OverviewKpiCard {
            required property int index
            readonly property int column: index % root.columns

            // Whole pixels, so that the last card ends where the grid does.
            width: Math.round((column + 1) * root.step) - Math.round(column * root.step) - root.spacing
        }
    }
}
