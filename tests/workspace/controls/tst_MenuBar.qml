import QtQuick
import QtQuick.Templates as T
import QtTest
import Ospra.Controls

Item {
    id: root

    width: 600
    height: 400

    MenuBar {
        id: bar

        Menu {
            id: file

            title: "File"

            T.Action { text: "Open Folder..." }
        }

        Menu {
            id: jump

            title: "Jump"

            T.Action { text: "Show All" }
        }
    }

    TestCase {
        name: "MenuBar"
        when: windowShown

        function cleanup() {
            for (const menu of [file, jump]) {
                menu.close();
                tryCompare(menu, "visible", false);
            }
        }

        function test_aClosedMenuLeavesTheBarAtRest_data() {
            return [
                { tag: "by a key", close: () => keyClick(Qt.Key_Escape) },
                { tag: "by a click", close: () => mouseClick(bar.itemAt(0)) }
            ];
        }

        function test_aClosedMenuLeavesTheBarAtRest(data) {
            mouseMove(bar.itemAt(0));
            mouseClick(bar.itemAt(0));
            tryCompare(file, "opened", true);
            data.close();
            tryCompare(file, "visible", false);
            verify(bar.itemAt(0).enabled);
            mouseMove(bar.itemAt(1));
            wait(50);
            verify(!jump.visible);
            mouseMove(root, 300, 300);
            verify(!bar.itemAt(0).highlighted);
            mouseClick(bar.itemAt(0));
            tryCompare(file, "opened", true);
        }
    }
}
