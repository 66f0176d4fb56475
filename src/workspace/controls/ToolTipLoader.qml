import QtQuick

/// Makes the tooltip of its parent when it is first wanted.
Loader {
    id: root

    required property string text
    required property bool isShown

    anchors.fill: root.parent

    onIsShownChanged: {
        if (root.isShown && root.text !== "" && root.status === Loader.Null)
            root.setSource("LoadedToolTip.qml", { owner: root });
    }
}
