import QtQuick
import Ospra.Controls
import Ospra.Theme
import Ospra.Workspace

/// The pane of settings: the units.
Rectangle {
    id: root

    required property UnitsSetting units

    readonly property Item chosen: root.units.useMetric ? metric : imperial

    /// Chooses and takes the focus along, as arrows do in a group of choices.
    function choose(useMetric: bool) {
        root.units.useMetric = useMetric;
        root.chosen.forceActiveFocus(Qt.TabFocusReason);
    }

    implicitHeight: column.height + 2 * Theme.space8
    radius: Theme.radiusCard
    color: Theme.card
    border.color: Theme.cardEdge
    border.width: Theme.isHighContrast ? Theme.lineWidth : 0

    Accessible.role: Accessible.Grouping
    Accessible.name: heading.text
    Keys.onUpPressed: root.choose(true)
    Keys.onLeftPressed: root.choose(true)
    Keys.onDownPressed: root.choose(false)
    Keys.onRightPressed: root.choose(false)

    Column {
        id: column

        x: Theme.space12
        y: Theme.space8
        width: root.width - 2 * Theme.space12

        Label {
            id: heading

            text: "Units"
            textStyle: Theme.caption
            color: Theme.textSecondary
            Accessible.ignored: true
        }

        RadioButton {
            id: metric

            text: "Metric"
            isChosen: root.units.useMetric
            focusPolicy: isChosen || activeFocus ? Qt.StrongFocus : Qt.ClickFocus
            onClicked: root.units.useMetric = true
        }

        RadioButton {
            id: imperial

            text: "Imperial"
            isChosen: !root.units.useMetric
            focusPolicy: isChosen || activeFocus ? Qt.StrongFocus : Qt.ClickFocus
            onClicked: root.units.useMetric = false
        }
    }
}
