pragma ComponentBehavior: Bound
import QtQuick
import Ospra.Controls
import Ospra.Theme
import Ospra.Workspace

/// The bar above the screens: the title, and for a jump the menu of series, the zoom toggles and the legend. The group
/// stands in the middle; where the room gets short it moves to the edge, then the menu loses its text, then the title
/// is cut, then the longest names of the legend.
Item {
    id: root

    required property OspraModel source
    required property TracksModel tracks
    required property string title
    required property bool showsJump
    readonly property real titleEnd: Theme.padding + heading.implicitWidth + Theme.space16
    readonly property real atTheEdge: root.width - group.width - Theme.padding

    implicitHeight: Theme.toolbarHeight
    clip: true // in a window too narrow for the group its first items go, and not over the sidebar

    Label {
        id: heading

        x: Theme.padding
        width: Math.max(0, Math.min(implicitWidth, (root.showsJump ? group.x - Theme.space16 : root.width) - Theme.padding))
        anchors.verticalCenter: parent.verticalCenter
        text: root.title
        textStyle: Theme.headline
        elide: Text.ElideRight
    }

    Row {
        id: group

        readonly property real centred: Math.round((root.width - group.width) / 2)
        readonly property real restWidth: group.width - seriesMenu.width

        x: group.centred >= root.titleEnd ? group.centred : root.atTheEdge
        anchors.verticalCenter: parent.verticalCenter
        visible: root.showsJump
        spacing: Theme.space8

        SeriesMenu {
            id: seriesMenu

            source: root.source
            hasDistances: root.tracks.count > 1
            isCompact: root.titleEnd + seriesMenu.fullWidth + group.restWidth + Theme.padding > root.width
        }

        ToolbarDivider {
            visible: zooms.count > 0
        }

        Repeater {
            model: zooms

            ToggleButton {
                required property int index
                required text

                onClicked: zooms.activate(index)
            }
        }

        ToolbarDivider {
            visible: root.tracks.count > 1
        }

        JumperLegend {
            id: legend

            anchors.verticalCenter: parent.verticalCenter
            visible: root.tracks.count > 1
            tracks: root.tracks
            room: root.width - 2 * Theme.padding - legend.x
        }
    }

    ZoomModesModel {
        id: zooms

        source: root.source
    }
}
