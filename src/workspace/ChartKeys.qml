import QtQuick
import Ospra.Workspace

/// What the keys do over the charts: they move the cursor, select with Shift, zoom to what is selected and let go of it.
QtObject {
    id: root

    required property ChartRowsModel rows
    required property real selectionStart
    required property real selectionEnd

    signal selected(start: real, end: real)
    signal zoomed
    signal dropped
    signal scrolled(pages: real)

    /// Whether the key is one of these.
    function press(key: int, modifiers: int): bool {
        if (modifiers & (Qt.AltModifier | Qt.MetaModifier))
            return false;
        const leaps = (modifiers & Qt.ControlModifier) !== 0;
        const selects = (modifiers & Qt.ShiftModifier) !== 0;
        switch (key) {
        case Qt.Key_Left:
            return root.move(leaps ? ChartRowsModel.LeapBack : ChartRowsModel.Back, selects);
        case Qt.Key_Right:
            return root.move(leaps ? ChartRowsModel.LeapForward : ChartRowsModel.Forward, selects);
        case Qt.Key_Home:
            return root.move(ChartRowsModel.ToStart, selects);
        case Qt.Key_End:
            return root.move(ChartRowsModel.ToEnd, selects);
        }
        return !leaps && !selects && root.pressPlain(key);
    }

    function pressPlain(key: int): bool {
        switch (key) {
        case Qt.Key_Return:
        case Qt.Key_Enter:
            return root.isSelecting() && (root.zoomed(), true);
        case Qt.Key_Escape:
            return root.letGo();
        case Qt.Key_PageUp:
            root.scrolled(-1);
            return true;
        case Qt.Key_PageDown:
            root.scrolled(1);
            return true;
        }
        return false;
    }

    function isSelecting(): bool {
        return !isNaN(root.selectionStart) && !isNaN(root.selectionEnd);
    }

    function move(step: int, selects: bool): bool {
        const from = root.rows.moveCursor(step);
        if (selects && !isNaN(from))
            root.selected(isNaN(root.selectionStart) ? from : root.selectionStart, root.rows.hoveredSeconds());
        else if (!selects)
            root.dropped();
        return true;
    }

    /// Of the selection, or else of the cursor.
    function letGo(): bool {
        if (root.isSelecting())
            root.dropped();
        else if (!isNaN(root.rows.hoveredSeconds()))
            root.rows.hoverNothing();
        else
            return false;
        return true;
    }
}
