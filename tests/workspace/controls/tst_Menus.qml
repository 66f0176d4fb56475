import QtQuick
import QtQuick.Templates as T
import QtTest
import Ospra.Controls

Item {
    id: root

    property bool isSpeedShown: false
    property list<string> done: []

    width: 600
    height: 400

    MenuButton {
        id: button

        title: "Data Series"

        Menu {
            id: menu

            MenuHeading { text: "Data Series" }
            CheckMenuItem {
                id: speed

                text: "Speed"
                isOn: root.isSpeedShown
                onTriggered: root.isSpeedShown = !root.isSpeedShown
            }
            MenuItem {
                text: "Not now"
                enabled: false
            }
            MenuSeparator { }
            MenuItem { text: "Refresh" }
            T.Action {
                text: "&Open..."
                onTriggered: root.done.push("open")
            }
        }
    }

    TestCase {
        name: "Menus"
        when: windowShown

        function init() {
            root.done = [];
            root.isSpeedShown = false;
            button.isCompact = false;
            button.forceActiveFocus(Qt.TabFocusReason);
        }

        function cleanup() {
            menu.close();
            tryCompare(menu, "visible", false);
        }

        function open() {
            keyClick(Qt.Key_Space);
            tryCompare(menu, "opened", true);
        }

        function test_aKeyOpensAndEscapeCloses_data() {
            return [
                { tag: "Space", key: Qt.Key_Space },
                { tag: "Return", key: Qt.Key_Return }
            ];
        }

        function test_aKeyOpensAndEscapeCloses(data) {
            keyClick(data.key);
            tryCompare(menu, "opened", true);
            verify(menu.y >= button.height);
            keyClick(Qt.Key_Escape);
            tryCompare(menu, "visible", false);
            tryCompare(button, "activeFocus", true);
        }

        function test_arrowsStopAtEntriesThatCanBeChosenOnly() {
            open();
            const seen = [];
            for (let step = 0; step < 3; ++step) {
                keyClick(Qt.Key_Down);
                seen.push(menu.itemAt(menu.currentIndex).text);
            }
            compare(seen, ["Speed", "Refresh", "&Open..."]);
            keyClick(Qt.Key_Up);
            compare(menu.itemAt(menu.currentIndex).text, "Refresh");
        }

        function test_aCheckFollowsTheState() {
            for (const expected of [true, false]) {
                open();
                mouseClick(speed);
                compare(root.isSpeedShown, expected);
                compare(speed.isOn, expected);
                tryCompare(menu, "visible", false);
                tryCompare(button, "activeFocus", true);
            }
        }

        function test_anActionIsTriggeredOnce_data() {
            return [
                { tag: "by a click", trigger: item => mouseClick(item) },
                { tag: "by Return", trigger: () => keyClick(Qt.Key_Return) },
                { tag: "by assistive technology", trigger: item => item.press() }
            ];
        }

        function test_anActionIsTriggeredOnce(data) {
            open();
            for (let step = 0; step < 3; ++step)
                keyClick(Qt.Key_Down);
            data.trigger(menu.itemAt(5));
            compare(root.done, ["open"]);
            tryCompare(menu, "visible", false);
        }

        function test_theButtonClosesItsOpenMenu() {
            mouseClick(button);
            tryCompare(menu, "opened", true);
            mouseClick(button);
            tryCompare(menu, "visible", false);
        }

        function test_whereItIsNarrowTheTextGoesToTheTooltip() {
            const width = button.implicitWidth;
            button.isCompact = true;
            tryVerify(() => button.implicitWidth < width - 30);
            compare(button.toolTip, "Data Series");
            compare(button.Accessible.name, "Data Series");
            const loader = Array.prototype.find.call(button.children, child => child.isShown !== undefined);
            mouseMove(button, 5, 5);
            tryVerify(() => loader.item !== null && loader.item.visible);
            compare(loader.item.text, "Data Series");
            mouseMove(button, -20, -20);
            tryCompare(loader.item, "visible", false);
        }
    }
}
