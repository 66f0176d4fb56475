#include "core/readLog.h"
#include "library/JumpFileEntry.h"
#include "logs/FlySightFile.h"
#include "logs/probeLogDates.h"
#include "platform/Files.h"
#include "tools/inspect/JsonWriter.h"
#include "tools/inspect/commands.h"

namespace ospra {

namespace {

void writeSample(JsonWriter& json, const FlySightDataPoint& sample)
{
    json.beginObject();
    json.member("time", sample.time);
    json.member("latitude", sample.coordinate.latitude);
    json.member("longitude", sample.coordinate.longitude);
    json.member("altitudeMSL", sample.altitudeMSL);
    json.member("velocityNorth", sample.velocityNorth);
    json.member("velocityEast", sample.velocityEast);
    json.member("velocityDown", sample.velocityDown);
    json.member("horizontalAccuracy", sample.horizontalAccuracy);
    json.member("verticalAccuracy", sample.verticalAccuracy);
    json.member("speedAccuracy", sample.speedAccuracy);
    json.member("gpsFix", sample.gpsFix);
    json.member("numSatellites", sample.numSatellites);
    json.member("heading", sample.heading);
    json.member("headingAccuracy", sample.headingAccuracy);
    json.endObject();
}

} // namespace

std::optional<std::string> inspectProbe(std::span<const std::string> files)
{
    if (files.empty())
        return std::nullopt;
    JsonWriter json;
    FileReader reader;
    json.beginList();
    for (const std::string& file : files) {
        const std::optional<std::string_view> bytes = reader.read(file);
        const LogDates dates = bytes ? probeLogDates(*bytes) : LogDates{};
        json.beginObject();
        json.member("file", file);
        json.member("jumpDate", dates.jumpDate);
        json.member("freefallDate", dates.freefallDate);
        json.endObject();
    }
    json.endList();
    return json.text();
}

std::optional<std::string> inspectLog(std::span<const std::string> arguments)
{
    if (arguments.size() != 1)
        return std::nullopt;
    JsonWriter json;
    FileReader reader;
    const ReadLog log = readLog(arguments.front(), logName(arguments.front()), reader);
    json.beginObject();
    if (log.file) {
        json.key("samples").beginList();
        for (const FlySightDataPoint& sample : log.file->dataPoints)
            writeSample(json, sample);
        json.endList();
    } else {
        json.member("error", log.errorText);
    }
    json.endObject();
    return json.text();
}

} // namespace ospra
