#include "workspace/shell/CopyCommand.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMetaMethod>
#include <QMetaProperty>

#include <utility>

namespace ospra {

namespace {

constexpr const char* selectedText = "selectedText";
constexpr const char* copyText = "copyText";

/// Menus, dialogs and the menu bar take the focus from what the user means to copy.
bool isInMenuOrDialog(const QQuickItem* item)
{
    for (; item; item = item->parentItem()) {
        if (item->inherits("QQuickOverlay") || item->inherits("QQuickMenuBar"))
            return true;
    }
    return false;
}

} // namespace

void CopyCommand::setWindow(QQuickWindow* window)
{
    if (m_window == window)
        return;
    if (m_window)
        m_window->disconnect(this);
    m_window = window;
    if (m_window)
        connect(m_window, &QQuickWindow::activeFocusItemChanged, this, &CopyCommand::takeFocusItem);
    takeFocusItem();
    emit windowChanged();
}

void CopyCommand::takeFocusItem()
{
    QQuickItem* item = m_window ? m_window->activeFocusItem() : nullptr;
    if (item == m_item || isInMenuOrDialog(item))
        return;
    // A window that loses the focus to another one keeps what it had.
    if (!item && m_window && !m_window->isActive())
        return;
    if (m_item)
        m_item->disconnect(this);
    m_item = item;
    if (m_item) {
        watch(selectedText);
        watch(copyText);
        connect(m_item, &QObject::destroyed, this, &CopyCommand::update);
        connect(m_item, &QQuickItem::visibleChanged, this, &CopyCommand::update);
    }
    update();
}

void CopyCommand::watch(const char* property)
{
    const QMetaObject* type = m_item->metaObject();
    const int index = type->indexOfProperty(property);
    if (index < 0 || !type->property(index).hasNotifySignal())
        return;
    static const QMetaMethod slot = staticMetaObject.method(staticMetaObject.indexOfSlot("update()"));
    connect(m_item, type->property(index).notifySignal(), this, slot);
}

void CopyCommand::update()
{
    const bool isEnabled = !text().isEmpty();
    if (std::exchange(m_isEnabled, isEnabled) != isEnabled)
        emit isEnabledChanged();
}

QString CopyCommand::text() const
{
    if (!m_item || !m_item->isVisible())
        return {};
    const QString selection = m_item->property(selectedText).toString();
    return selection.isEmpty() ? m_item->property(copyText).toString() : selection;
}

void CopyCommand::copy() const
{
    if (const QString wanted = text(); !wanted.isEmpty())
        QGuiApplication::clipboard()->setText(wanted);
}

} // namespace ospra
