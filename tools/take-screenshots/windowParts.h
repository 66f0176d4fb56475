#pragma once

#include <QQuickWindow>
#include <QString>

namespace ospra {

class TileMap;

/// Opens or closes a menu of the menu bar, or of a button with that title.
void setMenuOpen(const QQuickWindow& window, const QString& title, bool isOpen);

/// Calls a function without arguments of whichever object in the window has it.
void callInWindow(const QQuickWindow& window, const char* function);

/// The program's small window with that title that is on screen; null if there is none.
[[nodiscard]] QQuickWindow* smallWindow(const QString& title);

/// The map on screen; null if there is none.
[[nodiscard]] TileMap* visibleMap(const QQuickWindow& window);

/// Whether the map on screen rests and has each tile that its view wants, or has been told that there is none. True
/// where no map is on screen.
[[nodiscard]] bool mapIsComplete(const QQuickWindow& window);

} // namespace ospra
