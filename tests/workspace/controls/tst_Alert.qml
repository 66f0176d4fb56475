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

        function test_keysDismiss_data() {
            return [{ tag: "Return", key: Qt.Key_Return }, { tag: "Enter", key: Qt.Key_Enter }, { tag: "Space", key: Qt.Key_Space }, { tag: "Escape", key: Qt.Key_Escape }];
        }

        function test_keysDismiss(data) {
            keyClick(data.key);
            tryCompare(root, "failure", "");
            tryCompare(alert, "visible", false);
            compare(behind.clicks, 0);
        }

        function test_aClickOnTheButtonDismisses() {
            mouseClick(root, root.width / 2, alert.y + alert.height - 30);
            tryCompare(root, "failure", "");
        }

        function test_whatLiesBehindGetsNoClicks() {
            mouseClick(behind);
            compare(behind.clicks, 0);
            compare(root.failure, "No data points found");
        }

        function test_theStateClosesItWithoutAsking() {
            root.failure = "";
            tryCompare(alert, "visible", false);
            root.failure = "Missing header";
            tryCompare(alert, "opened", true);
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
