pragma ComponentBehavior: Bound
import QtQuick
import Ospra.Controls
import Ospra.Theme
import Ospra.TileMap
import Ospra.Workspace

/// Where the jump went: the paths over the ground, the aircraft's run, exit and landing, and a marker for each jumper that
/// follows the cursor of the charts. The camera moves when the model calls it; in between it is the user's. No control of
/// the toolkit, which would not keep the role.
Item {
    id: root

    required property OspraModel source

    /// To the part of the flight that the charts are zoomed to, or to everything.
    function moveCamera() {
        if (flight.hasRegion)
            ground.showRegion(flight.regionCenter, flight.regionSpans);
        else
            ground.frameContent();
    }

    activeFocusOnTab: true
    Accessible.role: Accessible.Canvas
    Accessible.name: qsTr("Map")
    Accessible.description: qsTr("The arrow keys move the map, plus and minus zoom.")
    Keys.onPressed: event => {
        const isPlain = !(event.modifiers & (Qt.ControlModifier | Qt.AltModifier | Qt.MetaModifier));
        event.accepted = isPlain && ground.pressKey(event.key);
    }
    Component.onCompleted: root.moveCamera()

    TileMap {
        id: ground

        anchors.fill: parent
        content: flight.content
        groundColor: Theme.mapGround
        gridColor: Theme.mapGrid
        nameFont: Theme.subheadline.font
        cameraDuration: Theme.cameraDuration
        isImperial: !root.source.useMetric
        onTouched: {
            root.forceActiveFocus(Qt.MouseFocusReason);
            ring.takeReason(Qt.MouseFocusReason);
        }

        MapIcon {
            map: ground
            place: flight.jumpRunEnd
            icon: "jump-run"
            size: Theme.iconMapSmall
            color: Theme.mapJumpRun
            rotation: flight.jumpRunBearing - 90
        }

        MapCaption {
            map: ground
            place: flight.jumpRunStart
            text: qsTr("Jump Run")
        }

        MapIcon {
            map: ground
            place: flight.exitPlace
            title: qsTr("Exit")
            icon: "airplane-departing"
            size: Theme.iconMap
            color: Theme.mapExit
            padding: Theme.mapChipPadding
            disc: Theme.mapChip
        }

        MapIcon {
            map: ground
            place: flight.landingPlace
            title: qsTr("Landing")
            icon: "landing"
            size: Theme.iconMap
            color: Theme.mapLanding
            padding: Theme.mapChipPadding
            disc: Theme.mapChip
        }

        Repeater {
            model: flight

            MapHoverMarker {
                map: ground
            }
        }
    }

    MapAttribution {
        id: attribution

        x: root.width - width
        y: root.height - height
        greatestWidth: root.width
        text: ground.attribution
    }

    MapScaleBar {
        readonly property bool fitsBeside: x + width + Theme.space10 <= attribution.x

        x: Theme.space10
        y: root.height - height - Theme.space8 - (attribution.visible && !fitsBeside ? attribution.height : 0)
        length: ground.scaleBarWidth
        text: ground.scaleBarText
    }

    FocusRing {
        id: ring

        control: root
        anchors.margins: 0
        controlRadius: -reach
    }

    FlightMapModel {
        id: flight

        source: root.source
        palette: Theme.mapPalette
        onCameraCalled: root.moveCamera()
    }
}
