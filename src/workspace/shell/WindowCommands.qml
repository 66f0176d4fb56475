import QtQml

/// What menus tell the window, whoever receives it there: menus know no views.
QtObject {
    signal openFolder
    signal addCompanionFolder
    signal zoomToFreefall
    signal zoomToCanopy
    signal zoomToAll
}
