import QtQuick
import QtTest
import Ospra.Controls

Item {
    id: root

    property int choice: 1

    width: 400
    height: 100

    SegmentedControl {
        id: control

        label: "Range"
        options: ["3M", "6M", "1Y"]
        currentIndex: root.choice
        onActivated: index => root.choice = index
    }

    SegmentedControl {
        id: stubborn

        y: 50
        options: ["Heatmap", "Stats"]
        currentIndex: 0
    }

    SignalSpy {
        id: asked

        target: stubborn
        signalName: "activated"
    }

    TestCase {
        name: "SegmentedControl"
        when: windowShown

        function init() {
            root.choice = 1;
            asked.clear();
            control.forceActiveFocus();
        }

        function test_arrowsMoveTheChoiceNoFurtherThanTheEnds() {
            for (const expected of [2, 2]) {
                keyClick(Qt.Key_Right);
                compare(root.choice, expected);
            }
            for (const expected of [1, 0, 0]) {
                keyClick(Qt.Key_Left);
                compare(root.choice, expected);
            }
        }

        function test_theStateDecidesWhatIsChosen() {
            mouseClick(stubborn, stubborn.width - 20, stubborn.height / 2);
            compare(asked.count, 1);
            compare(asked.signalArguments[0][0], 1);
            compare(stubborn.currentIndex, 0);
        }
    }
}
