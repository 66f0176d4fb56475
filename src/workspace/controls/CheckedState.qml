import QtQuick

/// Tells who reads the screen whether a button is on. The toolkit would tell the state that it keeps itself, which is
/// not used here; it puts that in as soon as somebody reads the screen.
QtObject {
    id: root

    required property Item button
    required property bool isOn
    property bool isCheckable: true

    readonly property Connections answer: Connections {
        target: root.button.Accessible

        function onCheckableChanged() {
            root.tell();
        }

        function onCheckedChanged() {
            root.tell();
        }
    }

    function tell() {
        root.button.Accessible.checkable = root.isCheckable;
        root.button.Accessible.checked = root.isCheckable && root.isOn;
    }

    onIsOnChanged: root.tell()
    onIsCheckableChanged: root.tell()
    Component.onCompleted: root.tell()
}
