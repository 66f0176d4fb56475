import QtQuick
import QtTest
import Ospra.Controls
import Ospra.Desktop

Item {
    id: root

    property string failure: ""

    width: 500
    height: 400

    Button {
        id: behind

        property int clicks: 0

        text: "Behind"
        onClicked: behind.clicks += 1
    }

    Alert {
        id: alert

        title: "Unable to Load Jump Data"
        message: root.failure
        isShown: root.failure !== ""
        onDismissed: root.failure = ""
    }

    TestCase {
        name: "Alert"
        when: windowShown

        function initTestCase() {
            Appearance.overrides = { fontSize: 13 };
        }

        function init() {
            behind.clicks = 0;
            behind.forceActiveFocus();
            root.failure = "No data points found";
            tryCompare(alert, "opened", true);
        }

        function cleanup() {
            root.failure = "";
            tryCompare(alert, "visible", false);
        }

        function clickButton() {
            mouseClick(root, root.width / 2, alert.y + alert.height - 30);
        }

        function test_dismisses_data() {
            return [
                { tag: "by Return", act: () => keyClick(Qt.Key_Return) },
                { tag: "by Enter", act: () => keyClick(Qt.Key_Enter) },
                { tag: "by Space", act: () => keyClick(Qt.Key_Space) },
                { tag: "by Escape", act: () => keyClick(Qt.Key_Escape) },
                { tag: "by its button", act: clickButton }
            ];
        }

        function test_dismisses(data) {
            data.act();
            tryCompare(root, "failure", "");
            tryCompare(alert, "visible", false);
            compare(behind.clicks, 0);
        }

        function test_whatLiesBehindGetsNoClicks() {
            mouseClick(behind);
            compare(behind.clicks, 0);
            compare(root.failure, "No data points found");
        }

        function test_aLongMessageStaysInTheWindow() {
            root.failure = "A very long message. ".repeat(200);
            tryVerify(() => alert.height > 300);
            verify(alert.y >= 0 && alert.y + alert.height <= root.height);
            compare(alert.width, 224);
            const before = grabImage(root);
            keyClick(Qt.Key_Down);
            tryVerify(() => !grabImage(root).equals(before));
            keyClick(Qt.Key_Up);
            tryVerify(() => grabImage(root).equals(before));
        }
    }
}
