#pragma once

#include <QObject>
#include <QPointer>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickWindow>

namespace ospra {

/// What "Copy" does in a window: it copies the text that is selected in the item with the keyboard's focus, or else the
/// text that the item offers as its property `copyText`. A menu that has the focus for the moment changes nothing.
class CopyCommand : public QObject {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QQuickWindow* window READ window WRITE setWindow NOTIFY windowChanged REQUIRED)
    Q_PROPERTY(bool isEnabled READ isEnabled NOTIFY isEnabledChanged)

public:
    using QObject::QObject;

    [[nodiscard]] QQuickWindow* window() const { return m_window; }
    void setWindow(QQuickWindow* window);
    /// There is something to copy.
    [[nodiscard]] bool isEnabled() const { return m_isEnabled; }

    Q_INVOKABLE void copy() const;

signals:
    void windowChanged();
    void isEnabledChanged();

private slots:
    void update();

private:
    void takeFocusItem();
    void watch(const char* property);
    [[nodiscard]] QString text() const;

    QPointer<QQuickWindow> m_window;
    QPointer<QQuickItem> m_item;
    bool m_isEnabled = false;
};

} // namespace ospra
