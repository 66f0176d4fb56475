import QtQuick
import Ospra.Theme

/// The ground of a card; what is put in stands in a column.
Rectangle {
    id: root

    property int inset: Theme.padding
    property alias spacing: column.spacing
    default property alias content: column.data

    implicitHeight: column.height + 2 * root.inset
    radius: Theme.radiusCard
    color: Theme.card
    border.color: Theme.cardEdge
    border.width: Theme.cardEdge.a > 0 ? Theme.lineWidth : 0

    Column {
        id: column

        x: root.inset
        y: root.inset
        width: root.width - 2 * root.inset
        spacing: Theme.space8
    }
}
