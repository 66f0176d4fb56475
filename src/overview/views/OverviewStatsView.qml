pragma ComponentBehavior: Bound
import QtQuick
import Ospra.Overview
import Ospra.Theme

/// The months with jumps, newest first.
Card {
    id: root

    required property TextRowsModel monthlyStats
    // How much of the card is to be seen, from 0 to 1. Rows are made when any of it is.
    property real openness: 1

    clip: heightChange.running

    Accessible.role: Accessible.List
    Accessible.name: "Monthly Stats"

    Behavior on height {
        enabled: root.openness === 1

        NumberAnimation {
            id: heightChange

            duration: Theme.rangeDuration
            easing.type: Easing.InOutQuad
        }
    }

    CardHeader {
        width: parent.width
        title: "Monthly Stats"
        subtitle: "Jumps and average per week"
    }

    Repeater {
        model: root.openness > 0 ? root.monthlyStats : null

        MonthLine {
            width: root.width - 2 * root.inset
        }
    }
}
