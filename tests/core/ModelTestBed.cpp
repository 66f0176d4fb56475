#include "tests/core/ModelTestBed.h"

#include <QDateTime>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <fstream>
#include <sstream>
#include <stdexcept>

namespace ospra {

namespace {

std::string isoText(Instant instant)
{
    const qint64 milliseconds = std::llround(instant.seconds * 1000.0);
    return QDateTime::fromMSecsSinceEpoch(milliseconds, Qt::UTC).toString(Qt::ISODateWithMs).toStdString();
}

std::string logText(const std::vector<FlySightDataPoint>& samples)
{
    std::ostringstream text;
    text.precision(12);
    text << "time,lat,lon,hMSL,velN,velE,velD,hAcc,vAcc\n,(deg),(deg),(m),(m/s),(m/s),(m/s),(m),(m)\n";
    for (const FlySightDataPoint& sample : samples)
        text << isoText(sample.time) << ',' << sample.coordinate.latitude << ',' << sample.coordinate.longitude << ','
             << sample.altitudeMSL << ',' << sample.velocityNorth << ',' << sample.velocityEast << ','
             << sample.velocityDown << ',' << sample.horizontalAccuracy << ',' << sample.verticalAccuracy << '\n';
    return text.str();
}

} // namespace

ModelTestBed::ModelTestBed()
{
    std::string pattern = (std::filesystem::temp_directory_path() / "ospra-model-XXXXXX").native();
    m_root = mkdtemp(pattern.data());
    m_services = {.settings = m_settings,
                  .folders = m_access,
                  .pool = std::make_shared<TaskPool>(1),
                  .mailbox = std::make_shared<Mailbox>([this] { m_mail.release(); }),
                  .names = makeNaturalOrder("en_US")};
}

ModelTestBed::~ModelTestBed()
{
    m_model.reset();
    m_services.pool.reset();
    std::filesystem::remove_all(m_root);
}

OspraModel& ModelTestBed::model()
{
    if (!m_model) {
        m_services.localeIsMetric = localeIsMetric;
        m_model = std::make_unique<OspraModel>(m_services);
    }
    return *m_model;
}

std::filesystem::path ModelTestBed::folder(const std::string& name)
{
    const std::filesystem::path path = m_root / name;
    std::filesystem::create_directories(path);
    return path;
}

std::filesystem::path ModelTestBed::addLog(const std::string& folderName, const std::string& fileName,
                                           const JumpPlan& plan)
{
    return addFile(folderName, fileName, logText(makeJump(plan)));
}

std::filesystem::path ModelTestBed::addFile(const std::string& folderName, const std::string& fileName,
                                            const std::string& text)
{
    const std::filesystem::path path = folder(folderName) / fileName;
    std::ofstream(path) << text;
    return path;
}

void ModelTestBed::openFolders(const std::string& primary, std::initializer_list<std::string> companions)
{
    model().openFolder(folder(primary));
    for (const std::string& name : companions)
        m_model->addCompanion(folder(name));
    settle();
}

void ModelTestBed::openNextJump()
{
    m_model->selectNextJump();
    settle();
}

const JumpGroup& ModelTestBed::jump(const std::string& name)
{
    const auto found =
        std::ranges::find(m_model->jumpGroups(), name, [](const JumpGroup& group) { return group.primaryEntry.name; });
    if (found == m_model->jumpGroups().end())
        throw std::out_of_range("no jump is called " + name);
    return *found;
}

void ModelTestBed::settle()
{
    while (m_model->isLoading()) {
        m_mail.acquire();
        deliverMail();
    }
}

void ModelTestBed::awaitBackground()
{
    // The pool has one thread, so this task runs behind all that were posted before.
    std::binary_semaphore done{0};
    m_services.pool->post([&done](const std::stop_token&) { done.release(); });
    done.acquire();
}

} // namespace ospra
