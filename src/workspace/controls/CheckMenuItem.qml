import QtQuick

/// An entry that shows whether something is on. It does not change itself: `isOn` is bound to the state, and `triggered`
/// asks for the change.
MenuItem {
    hasCheck: true
}
