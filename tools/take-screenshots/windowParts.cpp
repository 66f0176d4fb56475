#include "tools/take-screenshots/windowParts.h"

#include "tilemap/item/MapImagery.h"
#include "tilemap/item/TileMap.h"
#include "tilemap/planTiles.h"

#include <QGuiApplication>
#include <QMetaMethod>

#include <algorithm>

namespace ospra {

namespace {

/// Null if there is no such title in the menu bar.
QQuickItem* menuBarItem(const QQuickWindow& window, const QString& title)
{
    auto* bar = window.property("menuBar").value<QQuickItem*>();
    const int count = bar ? bar->property("count").toInt() : 0;
    for (int i = 0; i < count; ++i) {
        QQuickItem* item = nullptr;
        QMetaObject::invokeMethod(bar, "itemAt", Q_RETURN_ARG(QQuickItem*, item), Q_ARG(int, i));
        if (item && item->property("text").toString().remove(QLatin1Char('&')) == title)
            return item;
    }
    return nullptr;
}

bool hasAllTiles(const TileMap& map, const TileStore& store, MapSourceKind kind, double scale)
{
    const auto state = [&store](const TileKey& key) { return store.state(key); };
    const TilePlan plan = planTiles(map.view(), scale, store.sources(), kind, state);
    return std::ranges::none_of(plan.wanted, [&](const TileKey& key) { return state(key) == TileState::unknown; });
}

} // namespace

void setMenuOpen(const QQuickWindow& window, const QString& title, bool isOpen)
{
    if (QQuickItem* const item = menuBarItem(window, title)) {
        if (isOpen)
            QMetaObject::invokeMethod(item, "clicked");
        else
            QMetaObject::invokeMethod(item->property("menu").value<QObject*>(), "close");
        return;
    }
    for (const QQuickItem* item : window.findChildren<QQuickItem*>()) {
        auto* menu = item->property("menu").value<QObject*>();
        if (menu && item->property("title").toString() == title)
            QMetaObject::invokeMethod(menu, isOpen ? "open" : "close");
    }
}

void callInWindow(const QQuickWindow& window, const char* function)
{
    const QByteArray signature = QByteArray(function) + "()";
    for (QObject* object : window.findChildren<QObject*>()) {
        if (object->metaObject()->indexOfMethod(signature) >= 0) {
            QMetaObject::invokeMethod(object, function);
            return;
        }
    }
}

QQuickWindow* smallWindow(const QString& title)
{
    const QWindowList windows = QGuiApplication::topLevelWindows();
    const auto found = std::ranges::find_if(
        windows, [&title](const QWindow* window) { return window->isVisible() && window->title() == title; });
    return found == windows.end() ? nullptr : qobject_cast<QQuickWindow*>(*found);
}

TileMap* visibleMap(const QQuickWindow& window)
{
    const QList<TileMap*> maps = window.findChildren<TileMap*>();
    const auto found = std::ranges::find_if(maps, &TileMap::isVisible);
    return found == maps.end() ? nullptr : *found;
}

bool mapIsComplete(const QQuickWindow& window)
{
    const TileMap* const map = visibleMap(window);
    if (!map)
        return true;
    if (map->isMoving())
        return false;
    const TileStore* const store = MapImagery::current() ? MapImagery::current()->store() : nullptr;
    const double scale = window.effectiveDevicePixelRatio();
    return !store || (hasAllTiles(*map, *store, MapSourceKind::imagery, scale) &&
                      hasAllTiles(*map, *store, MapSourceKind::vector, scale));
}

} // namespace ospra
