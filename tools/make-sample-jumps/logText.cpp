#include "tools/make-sample-jumps/logText.h"

#include "tools/make-sample-jumps/TextBuilder.h"

namespace ospra {

namespace {

constexpr std::size_t longestRow = 130; // bytes, near enough to reserve memory by

/// The columns that both versions have at the same places: from the latitude to the accuracy of the speed.
void addMeasurements(TextBuilder& text, const Fix& fix)
{
    text.field(fix.latitude, 7).field(fix.longitude, 7).field(fix.altitudeMSL, 3);
    text.field(fix.velocity.north, 2).field(fix.velocity.east, 2).field(fix.velocity.down, 2);
    text.field(fix.horizontalAccuracy, 3).field(fix.verticalAccuracy, 3).field(fix.speedAccuracy, 2);
}

void addHead(TextBuilder& text, const Fix& first, std::uint32_t device)
{
    text.add("$FLYS,1\n$VAR,FIRMWARE_VER,v2024.05.25\n$VAR,DEVICE_ID,").padded(device, 12);
    text.add("\n$VAR,SESSION_ID,").padded(first.time, 16).add("\n");
}

} // namespace

std::string logTextOne(std::span<const Fix> fixes, LineEnd lineEnd)
{
    const std::string_view end = lineEnd == LineEnd::crLf ? "\r\n" : "\n";
    TextBuilder text;
    text.reserve((fixes.size() + 2) * longestRow);
    text.add("time,lat,lon,hMSL,velN,velE,velD,hAcc,vAcc,sAcc,heading,cAcc,gpsFix,numSV").add(end);
    text.add(",(deg),(deg),(m),(m/s),(m/s),(m/s),(m),(m),(m/s),(deg),(deg),,").add(end);
    for (const Fix& fix : fixes) {
        text.day(fix.time).add("T").clock(fix.time, ":").add(".").padded(fix.time % 1000 / 10, 2).add("Z");
        addMeasurements(text, fix);
        text.field(fix.heading, 5).field(fix.headingAccuracy, 5).field(fix.gpsFix).field(fix.satellites).add(end);
    }
    return text.take();
}

std::string logTextTwo(std::span<const Fix> fixes, std::uint32_t device)
{
    TextBuilder text;
    text.reserve((fixes.size() + 8) * longestRow);
    if (!fixes.empty())
        addHead(text, fixes.front(), device);
    text.add("$COL,GNSS,time,lat,lon,hMSL,velN,velE,velD,hAcc,vAcc,sAcc,numSV\n");
    text.add("$UNIT,GNSS,,deg,deg,m,m/s,m/s,m/s,m,m,m/s,\n$DATA\n");
    for (const Fix& fix : fixes) {
        text.add("$GNSS,").day(fix.time).add("T").clock(fix.time, ":").add(".").padded(fix.time % 1000, 3).add("Z");
        addMeasurements(text, fix);
        text.field(fix.satellites).add("\n");
    }
    return text.take();
}

std::string sensorText(std::span<const Fix> fixes, std::uint32_t device, Random random)
{
    TextBuilder text;
    if (fixes.empty())
        return {};
    addHead(text, fixes.front(), device);
    text.add("$COL,BARO,time,pressure,temperature\n$UNIT,BARO,s,Pa,deg C\n");
    text.add("$COL,MAG,time,x,y,z,temperature\n$UNIT,MAG,s,gauss,gauss,gauss,deg C\n");
    text.add("$COL,IMU,time,wx,wy,wz,ax,ay,az,temperature\n");
    text.add("$UNIT,IMU,s,deg/s,deg/s,deg/s,g,g,g,deg C\n$DATA\n");

    const Fix* before = nullptr;
    for (const Fix& fix : fixes) {
        if (before != nullptr && fix.time - before->time < 1000)
            continue;
        const double time = static_cast<double>(fix.time - fixes.front().time) / 1000.0 + 12.0;
        const double warmth = 24.0 - 0.0065 * fix.altitudeMSL;
        const double pressure = 101'325.0 * exponential(-fix.altitudeMSL / 8300.0);
        text.add("$BARO").field(time, 6).field(pressure + 3.0 * random.bell(), 2).field(warmth, 2).add("\n");
        text.add("$MAG").field(time + 0.01, 6);
        const Vector3 ahead = directionTo(fix.heading * degree);
        text.field(0.21 * ahead.north, 4).field(-0.21 * ahead.east, 4).field(0.43, 4).field(warmth, 1).add("\n");

        const double seconds = before != nullptr ? static_cast<double>(fix.time - before->time) / 1000.0 : 1.0;
        const Vector3 change = before != nullptr ? (fix.velocity - before->velocity) * (1.0 / seconds) : Vector3{};
        text.add("$IMU").field(time + 0.02, 6);
        for (int axis = 0; axis < 3; ++axis)
            text.field(6.0 * random.bell(), 3);
        text.field(dot(change, ahead) / 9.81, 5).field(0.03 * random.bell(), 5);
        text.field(1.0 - change.down / 9.81, 5).field(warmth + 4.0, 2).add("\n");
        before = &fix;
    }
    return text.take();
}

std::string dayText(std::int64_t milliseconds)
{
    return TextBuilder().day(milliseconds).take();
}

std::string clockText(std::int64_t milliseconds)
{
    return TextBuilder().clock(milliseconds, "-").take();
}

} // namespace ospra
