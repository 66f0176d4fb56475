#include "workspace/OspraApp.h"

#include "platform/DateTexts.h"
#include "workspace/shell/mapCredits.h"

#include <QCoreApplication>
#include <QFile>
#include <QFont>
#include <QGuiApplication>
#include <QIcon>
#include <QOpenGLContext>
#include <QScreen>
#include <QStandardPaths>
#include <QtQml/QQmlExtensionPlugin>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <system_error>

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

/// Without OpenGL the scene graph would end the program; its own renderer needs none.
void drawInSoftwareWhereThereIsNoOpenGL()
{
    if (!qEnvironmentVariableIsEmpty("QT_QUICK_BACKEND") || !qEnvironmentVariableIsEmpty("QSG_RHI_BACKEND"))
        return;
    QOpenGLContext context;
    if (!context.create())
        QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
}

/// The driver keeps a cache of shaders in a file that it maps into memory before the disk has room for it, and where
/// there is none the first touch ends the program. It can do without.
void spareFullDiskTheDriversCache()
{
    constexpr std::uintmax_t room = 8'000'000; // bytes; the index of the cache alone takes more than one million
    const QString caches = QStandardPaths::writableLocation(QStandardPaths::GenericCacheLocation);
    std::filesystem::path folder = QFile::encodeName(caches).toStdString();
    std::error_code error;
    while (folder.has_relative_path() && !std::filesystem::exists(folder, error))
        folder = folder.parent_path();
    const std::filesystem::space_info space = std::filesystem::space(folder, error);
    if (!error && space.available < room)
        qputenv("MESA_SHADER_CACHE_DISABLE", "true");
}

/// Makes the window smaller than it wants to be where the screen has less room, frame and title bar included.
void fitToScreen(QVariantMap& properties)
{
    constexpr QSize wanted(1200, 700);
    constexpr QSize least(900, 560);
    constexpr int titleBar = 40;
    const QScreen* screen = QGuiApplication::primaryScreen();
    if (!screen)
        return;
    const QSize room = screen->availableSize() - QSize(0, titleBar);
    if (room.width() < wanted.width()) {
        properties[QStringLiteral("width")] = room.width();
        properties[QStringLiteral("minimumWidth")] = std::min(room.width(), least.width());
    }
    if (room.height() < wanted.height()) {
        properties[QStringLiteral("height")] = room.height();
        properties[QStringLiteral("minimumHeight")] = std::min(room.height(), least.height());
    }
}

/// Where the display goes away, toolkit and driver leave the program from the middle of what they do, from two threads
/// at once and with all others running. There is nothing to save, since settings are written as they change, so the
/// program ends there and then. What is registered last is called first: this has to come after the driver's own.
void leaveAtOnceWithTheDisplay()
{
    std::atexit([] {
        if (QCoreApplication::instance() != nullptr)
            std::_Exit(1);
    });
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
}

OspraApp::OspraApp()
    : m_services(machineServices()), m_model(std::make_unique<OspraModel>(m_services)),
      m_updates(makeUpdateCheck(QStringLiteral(OSPRA_UPDATE_FEED), QCoreApplication::applicationVersion())),
      m_units(m_services.settings, m_services.localeIsMetric, *m_model)
{
    QObject::connect(&m_terminationSignals, &TerminationSignals::received, &QCoreApplication::quit);
    // The list of sources is read in the background, and there before the window or after it.
    QObject::connect(&m_imagery, &MapImagery::storeChanged, &m_imagery, [this] { passMapCredits(); });
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
    spareFullDiskTheDriversCache();
    drawInSoftwareWhereThereIsNoOpenGL();
    m_engine = std::make_unique<QQmlApplicationEngine>();
    m_engine->addImportPath(QStringLiteral("qrc:/qt/qml"));
    QVariantMap properties{{QStringLiteral("source"), QVariant::fromValue(m_model.get())},
                           {QStringLiteral("units"), QVariant::fromValue(&m_units)},
                           {QStringLiteral("updates"), QVariant::fromValue(m_updates.get())}};
    fitToScreen(properties);
    m_engine->setInitialProperties(properties);
    m_engine->load(QUrl(QStringLiteral("qrc:/qt/qml/Ospra/Workspace/MainWindow.qml")));
    passMapCredits();
    if (m_updates)
        m_updates->start();
    if (!window())
        return false;
    QObject::connect(window(), &QQuickWindow::frameSwapped, window(), leaveAtOnceWithTheDisplay,
                     Qt::ConnectionType(Qt::QueuedConnection | Qt::SingleShotConnection));
    return true;
}

/// Tells the window whose maps there are, for its about window.
void OspraApp::passMapCredits()
{
    const TileStore* const store = m_imagery.store();
    if (store && m_engine && window())
        window()->setProperty("mapCredits", QVariant::fromValue(mapCredits(store->sources())));
}

QQuickWindow* OspraApp::window() const
{
    return m_engine->rootObjects().isEmpty() ? nullptr
                                             : qobject_cast<QQuickWindow*>(m_engine->rootObjects().constFirst());
}

} // namespace ospra
