#include "tests/workspace/shell/ShellTestBed.h"

#include "workspace/theme/desktop/Appearance.h"

#include <QGuiApplication>
#include <QQmlError>
#include <QTest>

namespace ospra {

namespace {

QQuickItem* findItem(QQuickItem* item, const char* property, const QVariant& value)
{
    if (item->property(property) == value && item->isVisible())
        return item;
    const QList<QQuickItem*> children = item->childItems();
    for (QQuickItem* child : children) {
        if (QQuickItem* found = findItem(child, property, value))
            return found;
    }
    return nullptr;
}

} // namespace

void ShellTestBed::openWindow(CheckForUpdatesViewModel* updates)
{
    Appearance::instance()->setOverrides({{QStringLiteral("fontSize"), 13.0}});
    QObject::connect(engine.get(), &QQmlEngine::warnings, [this](const QList<QQmlError>& errors) {
        for (const QQmlError& error : errors)
            warnings.append(error.toString());
    });
    engine->addImportPath(QStringLiteral("qrc:/qt/qml"));
    engine->setInitialProperties({{QStringLiteral("source"), QVariant::fromValue(&model)},
                                  {QStringLiteral("units"), QVariant::fromValue(&units)},
                                  {QStringLiteral("updates"), QVariant::fromValue(updates)}});
    engine->load(QUrl(QStringLiteral("qrc:/qt/qml/Ospra/Workspace/MainWindow.qml")));
    window = qobject_cast<QQuickWindow*>(engine->rootObjects().value(0));
    ASSERT_TRUE(window);
    window->requestActivate();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window));
}

void ShellTestBed::TearDown()
{
    engine.reset(); // the window goes before what it shows
    EXPECT_EQ(warnings.join(QLatin1Char('\n')), "");
}

void ShellTestBed::openFolders()
{
    bed.addLog("me", "a.csv");
    bed.addLog("me", "b.csv", {.startSeconds = JumpPlan{}.startSeconds + 7200.0});
    bed.addLog("Maya", "b.csv", {.startSeconds = JumpPlan{}.startSeconds + 7201.0});
    model.openFolder(bed.folder("me"));
    model.addCompanion(bed.folder("Maya"));
    bed.settle();
}

void ShellTestBed::press(Qt::Key key, Qt::KeyboardModifiers modifiers)
{
    QTest::keyClick(window, key, modifiers);
    bed.settle();
}

QObject* ShellTestBed::menu(int position) const
{
    QObject* bar = window->property("menuBar").value<QObject*>();
    QQuickItem* item = nullptr;
    QMetaObject::invokeMethod(bar, "itemAt", Q_RETURN_ARG(QQuickItem*, item), Q_ARG(int, position));
    return item->property("menu").value<QObject*>();
}

QStringList ShellTestBed::entries(QObject* menu)
{
    QStringList entries;
    for (int index = 0; index < menu->property("count").toInt(); ++index) {
        QQuickItem* item = nullptr;
        QMetaObject::invokeMethod(menu, "itemAt", Q_RETURN_ARG(QQuickItem*, item), Q_ARG(int, index));
        if (!item->property("height").toBool())
            continue; // not shown now
        const QString text = item->property("text").toString();
        const bool isEnabled = item->property("enabled").toBool();
        entries.append(text.isEmpty() ? QStringLiteral("-")
                       : isEnabled    ? text
                                      : QLatin1Char('(') + text + QLatin1Char(')'));
    }
    return entries;
}

QQuickItem* ShellTestBed::itemWith(const char* property, const QVariant& value) const
{
    return findItem(window->contentItem(), property, value);
}

QQuickWindow* ShellTestBed::windowTitled(const QString& title)
{
    const QList<QWindow*> windows = QGuiApplication::topLevelWindows();
    for (QWindow* candidate : windows) {
        if (candidate->isVisible() && candidate->title() == title)
            return qobject_cast<QQuickWindow*>(candidate);
    }
    return nullptr;
}

} // namespace ospra
