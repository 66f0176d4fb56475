#include "tests/core/ModelTestBed.h"

#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <sstream>

namespace ospra {

namespace {

std::string isoText(Instant instant)
{
    using namespace std::chrono;
    const auto milliseconds = std::chrono::milliseconds(std::llround(instant.seconds * 1000.0));
    const sys_days day = floor<days>(sys_time<std::chrono::milliseconds>(milliseconds));
    const year_month_day date(day);
    const hh_mm_ss time(milliseconds - duration_cast<std::chrono::milliseconds>(day.time_since_epoch()));
    char text[64];
    std::snprintf(text, sizeof text, "%04d-%02u-%02uT%02d:%02d:%02d.%03dZ", int(date.year()), unsigned(date.month()),
                  unsigned(date.day()), int(time.hours().count()), int(time.minutes().count()),
                  int(time.seconds().count()), int(time.subseconds().count()));
    return text;
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
