#include "tests/workspace/WindowTest.h"

#include "workspace/theme/desktop/Appearance.h"

#include <QGuiApplication>
#include <QQmlError>
#include <QTest>

#include <stdexcept>

namespace ospra {

WindowTest::WindowTest()
{
    Appearance::instance()->setOverrides({{QStringLiteral("fontSize"), 13.0}});
    engine->addImportPath(QStringLiteral("qrc:/qt/qml"));
    QObject::connect(engine.get(), &QQmlEngine::warnings, [this](const QList<QQmlError>& errors) {
        for (const QQmlError& error : errors)
            warnings.append(error.toString());
    });
}

void WindowTest::TearDown()
{
    engine.reset(); // the window goes before what it shows
    EXPECT_EQ(warnings.join(QLatin1Char('\n')).toStdString(), "");
}

void WindowTest::openMainWindow(CheckForUpdatesViewModel* updates)
{
    open("import Ospra.Workspace\nMainWindow { }", {{QStringLiteral("source"), QVariant::fromValue(&model)},
                                                    {QStringLiteral("units"), QVariant::fromValue(&units)},
                                                    {QStringLiteral("updates"), QVariant::fromValue(updates)}});
}

void WindowTest::open(const QByteArray& document, const QVariantMap& properties)
{
    engine->setInitialProperties(properties);
    engine->loadData(document);
    window = qobject_cast<QQuickWindow*>(engine->rootObjects().value(0));
    if (!window)
        throw std::runtime_error(warnings.join(QLatin1Char('\n')).toStdString());
    window->requestActivate();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window));
}

void WindowTest::openJumps()
{
    bed.addLog("me", "a.csv");
    bed.addLog("me", "b.csv", later(7200.0));
    bed.addLog("Maya", "b.csv", later(7201.0));
    bed.openFolders("me", {"Maya"});
}

void WindowTest::press(Qt::Key key, Qt::KeyboardModifiers modifiers, int times)
{
    for (int time = 0; time < times; ++time)
        QTest::keyClick(window, key, modifiers);
    bed.settle();
}

QObject* WindowTest::menu(int position) const
{
    return itemAt(window->property("menuBar").value<QObject*>(), position)->property("menu").value<QObject*>();
}

QString WindowTest::entries(QObject* menu)
{
    QStringList entries;
    for (int index = 0; index < menu->property("count").toInt(); ++index) {
        const QQuickItem* const item = itemAt(menu, index);
        if (!item->property("height").toBool())
            continue; // not shown now
        const QString text = item->property("text").toString();
        const bool isEnabled = item->property("enabled").toBool();
        entries.append(text.isEmpty() ? QStringLiteral("-")
                       : isEnabled    ? text
                                      : QLatin1Char('(') + text + QLatin1Char(')'));
    }
    return entries.join(QStringLiteral(", "));
}

QQuickItem* WindowTest::itemAt(QObject* menu, int index)
{
    QQuickItem* item = nullptr;
    QMetaObject::invokeMethod(menu, "itemAt", Q_RETURN_ARG(QQuickItem*, item), Q_ARG(int, index));
    return item;
}

QQuickItem* WindowTest::itemWith(const char* property, const QVariant& value) const
{
    const std::vector<QQuickItem*> items = visibleItems(window->contentItem());
    const auto found = std::ranges::find(items, value, [=](QQuickItem* item) { return item->property(property); });
    return found == items.end() ? nullptr : *found;
}

QQuickWindow* WindowTest::windowTitled(const QString& title)
{
    const QList<QWindow*> windows = QGuiApplication::topLevelWindows();
    for (QWindow* candidate : windows) {
        if (candidate->isVisible() && candidate->title() == title)
            return qobject_cast<QQuickWindow*>(candidate);
    }
    return nullptr;
}

} // namespace ospra
