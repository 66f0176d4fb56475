import QtQuick
import QtQuick.Templates as T
import QtTest
import Ospra.Controls

Item {
    id: root

    property list<string> done: []

    width: 600
    height: 400

    MenuBar {
        id: bar

        Menu {
            title: "Ospra"
            iconName: "ospra"

            T.Action {
                text: "Settings..."
                onTriggered: root.done.push("settings")
            }
        }

        Menu {
            id: file

            title: "&File"

            T.Action {
                text: "Open Folder..."
                shortcut: "Ctrl+O"
                onTriggered: root.done.push("open")
            }
            T.Action {
                text: "Refresh"
                shortcut: "Ctrl+R"
                enabled: false
                onTriggered: root.done.push("refresh")
            }
        }

        Menu {
            id: jump

            title: "&Jump"

            T.Action { text: "Show All" }
        }
    }

    TestCase {
        name: "MenuBar"
        when: windowShown

        function init() {
            root.done = [];
        }

        function cleanup() {
            for (const menu of [file, jump]) {
                menu.close();
                tryCompare(menu, "visible", false);
            }
        }

        function test_titlesShowNoMnemonicsAndTheIconItsOwnWidth() {
            compare(bar.itemAt(1).plainText, "File");
            compare(bar.itemAt(1).contentItem.Accessible.name, "File");
            compare(bar.itemAt(0).contentItem.Accessible.name, "Ospra");
            compare(bar.itemAt(0).iconName, "ospra");
        }

        function test_aClickOpensAndAKeyTriggers() {
            mouseClick(bar.itemAt(1));
            tryCompare(file, "opened", true);
            keyClick(Qt.Key_Down);
            keyClick(Qt.Key_Return);
            compare(root.done, ["open"]);
            tryCompare(file, "visible", false);
        }

        function test_arrowsGoFromMenuToMenu() {
            mouseClick(bar.itemAt(1));
            tryCompare(file, "opened", true);
            keyClick(Qt.Key_Right);
            tryCompare(jump, "opened", true);
            tryCompare(file, "visible", false);
            keyClick(Qt.Key_Left);
            tryCompare(file, "opened", true);
            keyClick(Qt.Key_Escape);
            tryCompare(file, "visible", false);
        }

        function test_aClosedMenuLeavesTheBarAtRest_data() {
            return [{ tag: "by a key", close: () => keyClick(Qt.Key_Escape) }, { tag: "by a click", close: () => mouseClick(bar.itemAt(1)) }];
        }

        function test_aClosedMenuLeavesTheBarAtRest(data) {
            mouseMove(bar.itemAt(1));
            mouseClick(bar.itemAt(1));
            tryCompare(file, "opened", true);
            data.close();
            tryCompare(file, "visible", false);
            verify(bar.itemAt(1).enabled);
            mouseMove(bar.itemAt(2));
            wait(50);
            verify(!jump.visible);
            mouseMove(root, 300, 300);
            verify(!bar.itemAt(1).highlighted);
            mouseClick(bar.itemAt(1));
            tryCompare(file, "opened", true);
        }

        function test_mnemonicsOpen() {
            keyClick(Qt.Key_J, Qt.AltModifier);
            tryCompare(jump, "opened", true);
        }

        function test_shortcutsObeyTheState() {
            keyClick(Qt.Key_R, Qt.ControlModifier);
            compare(root.done, []);
            keyClick(Qt.Key_O, Qt.ControlModifier);
            compare(root.done, ["open"]);
        }
    }
}
