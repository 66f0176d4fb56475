#include "platform/FolderAccess.h"
#include "platform/SettingsStore.h"
#include "tools/take-screenshots/Session.h"
#include "workspace/theme/desktop/Appearance.h"

#include <QApplication>
#include <QDir>
#include <QFontDatabase>
#include <QProcess>
#include <QTemporaryDir>

#include <cstdio>

namespace {

constexpr const char* usage = "usage: take-screenshots FOLDER SAMPLES\n"
                              "  writes a picture of each screen, light and dark, at scale 1 and 2, of the program as\n"
                              "  it shows the sample jumps that make-sample-jumps has put into SAMPLES\n";

/// One run of the program, in a process of its own, as the scale factor holds for a whole process.
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
    const bool isDark = arguments[3] == QStringLiteral("dark");
    ospra::Appearance::instance()->setOverrides({{QStringLiteral("isDark"), isDark}});
    ospra::Session session(arguments[2], QStringLiteral("-") + arguments[3] + arguments[4]);
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

bool startSession(const QString& folder, const QString& samples, const QString& appearance, int scale)
{
    const QTemporaryDir home;
    QDir(home.path()).mkpath(QStringLiteral("Ospra"));
    rememberSamples(home.filePath(QStringLiteral("Ospra/Ospra.conf")), QDir(samples));
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("XDG_CONFIG_HOME"), home.path());
    environment.insert(QStringLiteral("QT_SCALE_FACTOR"), QString::number(scale));
    QProcess process;
    process.setProcessEnvironment(environment);
    process.setProcessChannelMode(QProcess::ForwardedChannels);
    process.start(QCoreApplication::applicationFilePath(),
                  {QStringLiteral("--appearance"), folder, appearance, scale == 1 ? QString() : QStringLiteral("@2x")});
    return process.waitForFinished(-1) && process.exitCode() == 0;
}

} // namespace

/// Starts the program on sample jumps and writes a picture of each screen.
int main(int argc, char** argv)
{
    if (argc == 5 && QByteArray(argv[1]) == "--appearance")
        return runSession(argc, argv);
    const QCoreApplication application(argc, argv);
    if (argc != 3) {
        std::fputs(usage, stderr);
        return 2;
    }
    const QString folder = QDir(QString::fromLocal8Bit(argv[1])).absolutePath();
    QDir().mkpath(folder);
    bool allDone = true;
    for (const char* appearance : {"dark", "light"})
        for (const int scale : {1, 2})
            allDone = startSession(folder, QString::fromLocal8Bit(argv[2]), QString::fromLatin1(appearance), scale) &&
                      allDone;
    return allDone ? 0 : 1;
}
