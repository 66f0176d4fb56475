#include "workspace/OspraApp.h"

#include "platform/DateTexts.h"

#include <QCoreApplication>
#include <QFont>
#include <QGuiApplication>
#include <QIcon>
#include <QQuickStyle>
#include <QtQml/QQmlExtensionPlugin>

Q_IMPORT_QML_PLUGIN(Ospra_ThemePlugin)
Q_IMPORT_QML_PLUGIN(Ospra_ControlsPlugin)
Q_IMPORT_QML_PLUGIN(Ospra_OverviewPlugin)
Q_IMPORT_QML_PLUGIN(Ospra_PlotPlugin)
Q_IMPORT_QML_PLUGIN(Ospra_TileMapPlugin)
Q_IMPORT_QML_PLUGIN(Ospra_WorkspacePlugin)

namespace ospra {

namespace {

/// A scan and loads overtake each other, so each needs a thread of its own.
constexpr int threadCount = 4;

ModelServices machineServices()
{
    return {.settings = makeUserSettingsStore(),
            .folders = makeFolderAccess(),
            .pool = std::make_shared<TaskPool>(threadCount),
            .mailbox = makeEventLoopMailbox(),
            .names = makeNaturalOrder(),
            .localeIsMetric = localeIsMetric()};
}

/// Letters keep the widths that their designer gave them: rounded to whole pixels, small text would run wide.
void refineFont()
{
    QFont font = QGuiApplication::font();
    font.setHintingPreference(QFont::PreferVerticalHinting);
    QGuiApplication::setFont(font);
}

} // namespace

void prepareApplication()
{
    QCoreApplication::setOrganizationName(QStringLiteral("Ospra"));
    QCoreApplication::setApplicationName(QStringLiteral("Ospra"));
    QCoreApplication::setApplicationVersion(QStringLiteral(OSPRA_VERSION));
    QGuiApplication::setDesktopFileName(QStringLiteral("ospra"));
    QGuiApplication::setHighDpiScaleFactorRoundingPolicy(Qt::HighDpiScaleFactorRoundingPolicy::PassThrough);
    QQuickWindow::setTextRenderType(QQuickWindow::NativeTextRendering);
    QQuickStyle::setStyle(QStringLiteral("Basic"));
}

OspraApp::OspraApp() : m_services(machineServices()), m_model(std::make_unique<OspraModel>(m_services))
{
    refineFont();
    QGuiApplication::setWindowIcon(QIcon(QStringLiteral(":/qt/qml/Ospra/Theme/icons/ospra.svg")));
}

OspraApp::~OspraApp()
{
    // The window goes before the model that it reads.
    m_engine.reset();
    m_model.reset();
}

bool OspraApp::openWindow()
{
    m_engine = std::make_unique<QQmlApplicationEngine>();
    m_engine->addImportPath(QStringLiteral("qrc:/qt/qml"));
    m_engine->setInitialProperties({{QStringLiteral("source"), QVariant::fromValue(m_model.get())}});
    m_engine->load(QUrl(QStringLiteral("qrc:/qt/qml/Ospra/Workspace/MainWindow.qml")));
    return window() != nullptr;
}

QQuickWindow* OspraApp::window() const
{
    return m_engine->rootObjects().isEmpty() ? nullptr
                                             : qobject_cast<QQuickWindow*>(m_engine->rootObjects().constFirst());
}

} // namespace ospra
