import QtQuick
import QtTest
import Ospra.Controls

Item {
    id: root

    property bool isOn: false

    width: 400
    height: 200

    /// The focus ring somewhere below an item.
    function ringOf(item) {
        for (let index = 0; index < item.children.length; ++index) {
            const child = item.children[index];
            const ring = child.isFromKey !== undefined ? child : root.ringOf(child);
            if (ring)
                return ring;
        }
        return null;
    }

    Column {
        spacing: 20

        Button {
            id: first

            text: "First"
        }

        ToggleButton {
            id: toggle

            text: "Toggle"
            isOn: root.isOn
            onClicked: root.isOn = !root.isOn
        }

        SegmentedControl {
            id: segments

            options: ["One", "Two"]
            currentIndex: 0
        }

        CopyTarget {
            id: number

            width: 60
            height: 20
            copyText: "4321"
            Accessible.name: "Height 4321"
        }
    }

    TestCase {
        name: "Focus"
        when: windowShown

        function test_theRingShowsAfterAKeyOnly() {
            mouseClick(first);
            verify(first.activeFocus);
            verify(!root.ringOf(first).visible);
            keyClick(Qt.Key_Tab);
            verify(toggle.activeFocus);
            verify(root.ringOf(toggle).visible);
            verify(!root.ringOf(first).visible);
            mouseClick(toggle);
            verify(toggle.activeFocus);
            verify(!root.ringOf(toggle).visible);
        }

        function test_theRingOfAnItemThatIsNoControl() {
            segments.forceActiveFocus(Qt.TabFocusReason);
            keyClick(Qt.Key_Tab);
            verify(number.activeFocus);
            verify(root.ringOf(number).visible);
            keyClick(Qt.Key_Backtab);
            verify(!root.ringOf(number).visible);
            mouseClick(number);
            verify(number.activeFocus);
            verify(!root.ringOf(number).visible);
            keyClick(Qt.Key_Backtab);
            // Pressed elsewhere and not let go over it, it does not get the focus.
            mousePress(number);
            mouseMove(number, 300, 100);
            mouseRelease(number, 300, 100);
            verify(!number.activeFocus);
            keyClick(Qt.Key_Tab);
            verify(root.ringOf(number).visible);
            compare(number.Accessible.role, Accessible.StaticText);
        }

        function test_presses_data() {
            return [
                { tag: "Space", press: () => keyClick(Qt.Key_Space) },
                { tag: "Return", press: () => keyClick(Qt.Key_Return) },
                { tag: "Enter", press: () => keyClick(Qt.Key_Enter) },
                { tag: "assistive technology", press: () => toggle.press() }
            ];
        }

        function test_presses(data) {
            toggle.forceActiveFocus();
            for (const expected of [!root.isOn, root.isOn]) {
                data.press();
                compare(root.isOn, expected);
                compare(toggle.Accessible.checked, expected);
            }
        }
    }
}
