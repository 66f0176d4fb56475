pragma ComponentBehavior: Bound
import QtQml.Models
import QtQuick
import Ospra.Controls
import Ospra.Theme
import Ospra.Workspace

/// The menu that switches the rows of the charts on and off.
MenuButton {
    id: root

    required property OspraModel source
    required property bool hasDistances
    // What the button takes with its text, whether or not it shows it.
    readonly property real fullWidth: 2 * Theme.space10 + Theme.iconSmall + 2 * Theme.space6 + Theme.scaled(12) + Math.ceil(root.metrics.advanceWidth(root.title))

    readonly property SeriesModel series: SeriesModel {
        source: root.source
        family: SeriesModel.Data
    }
    readonly property SeriesModel distances: SeriesModel {
        source: root.source
        family: SeriesModel.Distance
    }
    readonly property FontMetrics metrics: FontMetrics {
        font.family: Theme.fontFamily
        font.pointSize: Theme.body.pointSize
        font.weight: Font.Medium
    }

    icon.name: "chart-line"
    title: "Data Series"

    Menu {
        id: menu

        title: root.title

        MenuHeading {
            text: "Data Series"
        }

        MenuSeparator { }

        MenuHeading {
            text: "Display"
        }

        CheckMenuItem {
            text: "Altitude AGL"
            isOn: root.source.useAGL
            onTriggered: root.source.useAGL = !root.source.useAGL
        }

        Instantiator {
            model: root.series
            delegate: CheckMenuItem {
                required property int index
                required property string title
                required property bool isEnabled

                text: title
                isOn: isEnabled
                onTriggered: root.series.toggle(index)
            }
            onObjectAdded: (index, object) => menu.insertItem(1 + index, object as CheckMenuItem)
            onObjectRemoved: (index, object) => menu.removeItem(object as CheckMenuItem)
        }

        MenuSeparator {
            visible: root.hasDistances
            height: visible ? implicitHeight : 0
        }

        MenuHeading {
            visible: root.hasDistances
            height: visible ? implicitHeight : 0
            text: "Distance"
        }

        Instantiator {
            model: root.hasDistances ? root.distances : null
            delegate: CheckMenuItem {
                required property int index
                required property string title
                required property bool isEnabled

                text: title
                isOn: isEnabled
                onTriggered: root.distances.toggle(index)
            }
            onObjectAdded: (index, object) => menu.addItem(object as CheckMenuItem)
            onObjectRemoved: (index, object) => menu.removeItem(object as CheckMenuItem)
        }
    }
}
