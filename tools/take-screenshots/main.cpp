#include "platform/FolderAccess.h"
#include "platform/SettingsStore.h"
#include "tools/take-screenshots/MapForSamples.h"
#include "tools/take-screenshots/Session.h"
#include "workspace/theme/desktop/Appearance.h"

#include <QApplication>
#include <QDir>
#include <QFontDatabase>
#include <QProcess>
#include <QTemporaryDir>

#include <algorithm>
#include <array>
#include <cstdio>
#include <span>

namespace {

constexpr const char* usage =
    "usage: take-screenshots FOLDER SAMPLES\n"
    "       take-screenshots --contrasts SAMPLES\n"
    "  writes a picture of each screen, light and dark, of the main ones at scale 2 and in a\n"
    "  small window too, of the program as it shows the sample jumps that\n"
    "  make-sample-jumps has put into SAMPLES, over a map that is painted for them;\n"
    "  with --contrasts it keeps no picture but measures in each how far texts stand\n"
    "  out from their ground, and tells of those that do so by less than 4.5 to 1\n";

// The words for the values of Choice, in their order.
constexpr std::array choices{"all", "main", "bare-maps", "contrasts"};

/// One run of the program, in a process of its own, as the scale factor holds for a whole process.
/// Arguments: --pictures FOLDER APPEARANCE SUFFIX CHOICE FEED
int runSession(int argc, char** argv)
{
    ospra::prepareApplication();
    const QApplication application(argc, argv);
    const QStringList arguments = QApplication::arguments();
    if (QFontDatabase::families().contains(QStringLiteral("Inter"))) {
        QFont font(QStringLiteral("Inter"));
        font.setPixelSize(13);
        QApplication::setFont(font);
    }
    const auto choice = std::ranges::find(choices, arguments[5]) - choices.begin();
    QVariantMap look{{QStringLiteral("isDark"), arguments[3] == QStringLiteral("dark")}};
    if (static_cast<ospra::Choice>(choice) == ospra::Choice::contrasts)
        look[QStringLiteral("isMotionReduced")] = true; // nothing to wait for
    ospra::Appearance::instance()->setOverrides(look);
    ospra::Session session({.folder = arguments[2],
                            .suffix = QStringLiteral("-") + arguments[3] + arguments[4],
                            .choice = static_cast<ospra::Choice>(choice),
                            .feed = QUrl(arguments[6])});
    return session.run() ? 0 : 1;
}

/// The settings of a program that has the sample folders open: the logbook first, then the others.
void rememberSamples(const QString& settingsFile, const QDir& samples)
{
    const std::unique_ptr<ospra::FolderAccess> access = ospra::makeFolderAccess();
    const std::unique_ptr<ospra::SettingsStore> settings = ospra::makeFileSettingsStore(settingsFile.toStdString());
    std::vector<std::string> companions;
    for (const QString& name : samples.entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name)) {
        const std::optional<std::string> handle = access->makeHandle(samples.absoluteFilePath(name).toStdString());
        if (!handle)
            continue;
        if (name == QStringLiteral("Logbook"))
            settings->setBytes("directoryBookmark", *handle);
        else
            companions.push_back(*handle);
    }
    settings->setByteList("companionBookmarks", companions);
    settings->setBoolean("useMetric", true);
}

struct Run {
    const char* appearance;
    int scale;
    ospra::Choice choice;
};

constexpr std::array runs{Run{"dark", 1, ospra::Choice::all},      Run{"light", 1, ospra::Choice::all},
                          Run{"dark", 2, ospra::Choice::main},     Run{"light", 2, ospra::Choice::main},
                          Run{"dark", 1, ospra::Choice::bareMaps}, Run{"light", 1, ospra::Choice::bareMaps}};

constexpr std::array measuringRuns{Run{"dark", 2, ospra::Choice::contrasts}, Run{"light", 2, ospra::Choice::contrasts}};

/// Starts a session with settings, map sources and a cache of its own.
bool startSession(const Run& run, const QString& folder, const QString& samples, const ospra::MapForSamples& map)
{
    const QTemporaryDir home;
    const QString data = home.filePath(QStringLiteral("data"));
    const bool hasImagery = run.choice != ospra::Choice::bareMaps;
    QDir(home.path()).mkpath(QStringLiteral("config/Ospra"));
    rememberSamples(home.filePath(QStringLiteral("config/Ospra/Ospra.conf")), QDir(samples));
    if (hasImagery ? !map.writeSources(data) : !ospra::MapForSamples::writeNoSources(data))
        return false;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("XDG_CONFIG_HOME"), home.filePath(QStringLiteral("config")));
    environment.insert(QStringLiteral("XDG_DATA_HOME"), data);
    environment.insert(QStringLiteral("XDG_CACHE_HOME"), home.filePath(QStringLiteral("cache")));
    environment.insert(QStringLiteral("QT_SCALE_FACTOR"), QString::number(run.scale));
    const QString suffix = QLatin1String(run.scale == 1 ? "" : "@2x") + QLatin1String(hasImagery ? "" : "-bare");
    const auto choice = static_cast<std::size_t>(run.choice);
    QProcess process;
    process.setProcessEnvironment(environment);
    process.setProcessChannelMode(QProcess::ForwardedChannels);
    process.start(QCoreApplication::applicationFilePath(),
                  {QStringLiteral("--pictures"), folder, QString::fromLatin1(run.appearance), suffix,
                   QString::fromLatin1(choices.at(choice)), map.feed()});
    return process.waitForFinished(-1) && process.exitCode() == 0;
}

} // namespace

/// Starts the program on sample jumps and writes a picture of each screen.
int main(int argc, char** argv)
{
    if (argc == 7 && QByteArray(argv[1]) == "--pictures")
        return runSession(argc, argv);
    const QCoreApplication application(argc, argv);
    if (argc != 3) {
        std::fputs(usage, stderr);
        return 2;
    }
    const bool measures = QByteArray(argv[1]) == "--contrasts";
    const QString folder = measures ? QString() : QDir(QString::fromLocal8Bit(argv[1])).absolutePath();
    if (!measures)
        QDir().mkpath(folder);
    const ospra::MapForSamples map;
    bool allDone = true;
    for (const Run& run : measures ? std::span<const Run>(measuringRuns) : std::span<const Run>(runs))
        allDone = startSession(run, folder, QString::fromLocal8Bit(argv[2]), map) && allDone;
    return allDone ? 0 : 1;
}
