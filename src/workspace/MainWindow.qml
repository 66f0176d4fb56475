import QtQuick
import Ospra.Controls
import Ospra.Theme
import Ospra.Workspace

/// The program's one window.
ApplicationWindow {
    id: root

    required property OspraModel source

    width: 1200
    height: 700
    minimumWidth: Theme.windowMinimumWidth
    minimumHeight: Theme.windowMinimumHeight
    visible: true
    title: "Ospra"
    color: Theme.chrome

    ContentView {
        anchors.fill: parent
        focus: true
        source: root.source
    }
}
