pragma ComponentBehavior: Bound
import QtQuick
import Ospra.Controls
import Ospra.Theme
import Ospra.Workspace

/// Which colour stands for which jumper.
Row {
    id: root

    required property TracksModel tracks
    property real room: Infinity ///< that the whole legend may take
    readonly property real nameMaximum: root.longestFor(Array.from(root.tracks.names, name => Theme.caption.metrics.advanceWidth(name) + 1))

    /// The width to which names are cut so that all fit; those that are shorter leave the others more.
    function longestFor(widths: list<real>): real {
        const sorted = Array.from(widths).sort((a, b) => a - b);
        let left = root.room - sorted.length * (Theme.markerSize + Theme.space4) - (sorted.length - 1) * root.spacing;
        for (let i = 0; i < sorted.length; ++i) {
            const share = left / (sorted.length - i);
            if (sorted[i] > share)
                return Math.max(0, Math.floor(share));
            left -= sorted[i];
        }
        return Infinity;
    }

    spacing: Theme.space8

    Repeater {
        model: root.tracks

        Row {
            id: entry

            required property string name
            required property int jumperColor

            spacing: Theme.space4

            JumperDot {
                anchors.verticalCenter: parent.verticalCenter
                jumperColor: entry.jumperColor
            }

            Label {
                width: Math.min(Math.ceil(implicitWidth), root.nameMaximum)
                elide: Text.ElideRight
                text: entry.name
                textStyle: Theme.caption
            }
        }
    }
}
