#include "display/chartSeries.h"
#include "display/distanceSeries.h"
#include "display/nearest.h"
#include "tests/properties/Frame.h"
#include "tests/properties/NaiveAnalysis.h"
#include "tests/properties/NaiveNearest.h"
#include "tests/properties/Scene.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace ospra::properties {

namespace {

using Points = std::vector<ChartPoint>;

bool isSame(double a, double b)
{
    return a == b || (std::isnan(a) && std::isnan(b));
}

/// Equal points, every NaN equal to every other. Says where they differ.
testing::AssertionResult areSame(const ChartPoints& actual, const Points& expected)
{
    if (actual.size() != expected.size())
        return testing::AssertionFailure() << actual.size() << " points, not " << expected.size();
    for (std::size_t i = 0; i < expected.size(); ++i)
        if (actual[i].id != expected[i].id || !isSame(actual[i].seconds, expected[i].seconds) ||
            !isSame(actual[i].value, expected[i].value))
            return testing::AssertionFailure()
                   << "point " << i << " is " << actual[i].value << ", not " << expected[i].value;
    return testing::AssertionSuccess();
}

Points filtered(std::span<const ChartPoint> points, TimeRange range)
{
    Points kept;
    for (const ChartPoint& point : points)
        if (range.lo <= point.seconds && point.seconds <= range.hi)
            kept.push_back(point);
    return kept;
}

double seriesValueOf(const FlySightDataPoint& p, DataSeries series, double g, bool isMetric)
{
    const double h = std::sqrt(p.velocityNorth * p.velocityNorth + p.velocityEast * p.velocityEast);
    const double speed = isMetric ? 3.6 : 2.23694;
    if (series == DataSeries::elevation)
        return isMetric ? p.altitudeMSL - g : (p.altitudeMSL - g) * 3.28084;
    if (series == DataSeries::horizontalSpeed)
        return h * speed;
    if (series == DataSeries::verticalSpeed)
        return p.velocityDown * speed;
    if (series == DataSeries::totalSpeed)
        return std::sqrt(p.velocityNorth * p.velocityNorth + p.velocityEast * p.velocityEast +
                         p.velocityDown * p.velocityDown) *
               speed;
    if (series == DataSeries::diveAngle)
        return std::atan2(p.velocityDown, h) * 180 / std::numbers::pi;
    const double sink = p.velocityDown < 0 ? -p.velocityDown : p.velocityDown;
    const double glide = sink > 0.5 ? h / sink : 0;
    return glide > 10 ? 10 : glide;
}

double haversine(Coordinate a, Coordinate b)
{
    const auto rad = [](double degrees) { return degrees * std::numbers::pi / 180; };
    const double sinPhi = std::sin(rad(b.latitude - a.latitude) * 0.5);
    const double sinLambda = std::sin(rad(b.longitude - a.longitude) * 0.5);
    const double q = sinPhi * sinPhi + std::cos(rad(a.latitude)) * std::cos(rad(b.latitude)) * (sinLambda * sinLambda);
    return std::asin(std::sqrt(q)) * 12742000.0;
}

Points smoothed(Points points)
{
    if (points.size() < 5)
        return points;
    std::vector<double> values;
    for (const ChartPoint& point : points)
        values.push_back(point.value);
    values = naive::movingMedian(values, 5);
    for (std::size_t i = 0; i < points.size(); ++i)
        points[i].value = values[i];
    return points;
}

TEST(SeriesOfAnyLog, followTheirFormulasSampleBySample)
{
    forSeeds(1'000, [&](Dice& dice) {
        std::vector<JumpTrack> tracks = makeTracks(dice, dice.oneIn(4) ? Damage::values : Damage::clock);
        if (dice.oneIn(6))
            tracks.front().statistics.reset();
        const DisplayUnits units = makeUnits(dice);
        const std::vector<SeriesData> data = buildChartData(tracks, units);
        ASSERT_EQ(data.size(), tracks.size());
        for (std::size_t t = 0; t < tracks.size(); ++t) {
            const JumpTrack& track = tracks[t];
            const bool isAboveGround = units.altitude == AltitudeReference::aboveGround && track.statistics;
            const double g = isAboveGround ? track.statistics->groundElevation : 0;
            for (const DataSeries series : allDataSeries) {
                Points expected;
                for (std::size_t i = 0; i < track.elapsed.size(); ++i)
                    expected.push_back({.id = static_cast<std::int64_t>(i),
                                        .seconds = track.elapsed[i],
                                        .value = seriesValueOf(track.file.dataPoints[i], series, g,
                                                               units.system == UnitSystem::metric)});
                ASSERT_TRUE(areSame(data[t][series], expected)) << displayName(series);
            }
        }
    });
}

TEST(DistancesOfAnyLogs, followTheirFormulasSampleBySample)
{
    std::size_t left = 0;
    forSeeds(800, [&](Dice& dice) {
        const std::vector<JumpTrack> tracks = makeTracks(dice, Damage::clock);
        const UnitSystem system = makeUnits(dice).system;
        const double f = system == UnitSystem::metric ? 1.0 : 3.28084;
        const std::vector<CompanionDistanceData> distances = buildDistanceData(tracks, system);
        ASSERT_EQ(distances.size(), tracks.size() - 1);
        for (std::size_t t = 1; t < tracks.size(); ++t) {
            std::array<Points, 3> expected;
            for (std::size_t i = 0; i < tracks[0].elapsed.size(); ++i) {
                const double seconds = tracks[0].elapsed[i];
                const FlySightDataPoint& own = tracks[0].file.dataPoints[i];
                const FlySightDataPoint& other =
                    tracks[t].file.dataPoints[naive::nearest(tracks[t].elapsed, seconds, false)];
                if (own.horizontalAccuracy >= 50 || other.horizontalAccuracy >= 50) {
                    ++left;
                    continue;
                }
                const double d = haversine(own.coordinate, other.coordinate);
                const double v = own.altitudeMSL - other.altitudeMSL;
                const auto id = static_cast<std::int64_t>(i);
                expected[0].push_back({id, seconds, d * f});
                expected[1].push_back({id, seconds, (v < 0 ? -v : v) * f});
                expected[2].push_back({id, seconds, std::sqrt(d * d + v * v) * f});
            }
            EXPECT_EQ(distances[t - 1].id, tracks[t].id);
            EXPECT_EQ(distances[t - 1].companionName, tracks[t].jumperName);
            EXPECT_EQ(distances[t - 1].companionColor, tracks[t].jumperColor);
            for (std::size_t series = 0; series < expected.size(); ++series)
                ASSERT_TRUE(areSame(distances[t - 1].data[allDistanceSeries[series]], smoothed(expected[series])))
                    << displayName(allDistanceSeries[series]);
        }
    });
    EXPECT_GT(left, 1000u) << "inaccurate fixes hardly occur";
}

TEST(HorizontalDistancesOfAnyLog, growFromTheExit)
{
    forSeeds(800, [&](Dice& dice) {
        const std::vector<JumpTrack> tracks = makeTracks(dice, Damage::clock);
        const UnitSystem system = makeUnits(dice).system;
        const double f = system == UnitSystem::metric ? 1.0 : 3.28084;
        const HorizontalDistances distances = buildHorizontalDistances(tracks, system);
        ASSERT_EQ(distances.size(), tracks.size());
        for (const JumpTrack& track : tracks) {
            const Samples& samples = track.file.dataPoints;
            std::size_t exit = 0;
            for (const JumpPhaseRange& range : track.phases)
                if (range.phase == JumpPhase::freefall)
                    exit = static_cast<std::size_t>(range.startIndex);
            Points traveled;
            Points fromExit;
            double total = 0;
            for (std::size_t i = 0; i < samples.size(); ++i) {
                const bool hasLeft = i > exit;
                if (hasLeft)
                    total += haversine(samples[i - 1].coordinate, samples[i].coordinate);
                const double straight = hasLeft ? haversine(samples[exit].coordinate, samples[i].coordinate) : 0;
                traveled.push_back({static_cast<std::int64_t>(i), track.elapsed[i], total * f});
                fromExit.push_back({static_cast<std::int64_t>(i), track.elapsed[i], straight * f});
            }
            ASSERT_TRUE(areSame(distances.at(track.id).traveled, traveled));
            ASSERT_TRUE(areSame(distances.at(track.id).fromExit, fromExit));
        }
    });
}

/// The same distance as the angle between two directions in space.
TEST(GreatCircleDistance, isTheAngleBetweenTwoDirections)
{
    Dice dice(1);
    for (int round = 0; round < 20'000; ++round) {
        const double reach = dice.oneIn(2) ? 0.01 : 90.0;
        const Coordinate a{.latitude = dice.real(-90.0, 90.0), .longitude = dice.real(-180.0, 180.0)};
        const Coordinate b{.latitude = std::clamp(a.latitude + dice.real(-reach, reach), -90.0, 90.0),
                           .longitude = a.longitude + dice.real(-reach, reach)};
        const Vector u = frameAt(a).up;
        const Vector v = frameAt(b).up;
        const double expected = 2.0 * std::atan2(length(u - v), length(u + v)) * 6371000.0;
        ASSERT_NEAR(greatCircleDistance(a, b), expected, 1e-6 + 1e-9 * expected);
        ASSERT_EQ(greatCircleDistance(a, b), haversine(a, b));
    }
}

TEST(VisibleSeries, areWhatAFilterLeaves)
{
    forSeeds(600, [](Dice& dice) {
        const auto [tracks, hidden, shown] = makeScene(dice);
        const DisplayUnits units = makeUnits(dice);
        const std::vector<SeriesData> data = buildChartData(tracks, units);
        const HorizontalDistances horizontal = buildHorizontalDistances(tracks, units.system);
        const std::vector<CompanionDistanceData> distances = buildDistanceData(tracks, units.system);
        TimeRange range = makeRange(dice, tracks);
        if (dice.oneIn(4))
            std::swap(range.lo, range.hi);

        const std::vector<VisibleTrackData> visible = cutChartData(tracks, data, hidden, range);
        const std::vector<VisibleHorizontalDistanceTrackData> paths =
            cutHorizontalDistances(tracks, horizontal, hidden, range);
        ASSERT_EQ(visible.size(), shown.size());
        ASSERT_EQ(paths.size(), shown.size());
        for (std::size_t i = 0; i < shown.size(); ++i) {
            const std::ptrdiff_t index = shown[i] - tracks.data();
            EXPECT_EQ(visible[i].id, shown[i]->id);
            EXPECT_EQ(visible[i].trackIndex, index);
            EXPECT_EQ(visible[i].isPrimary, index == 0);
            EXPECT_EQ(paths[i].trackIndex, index);
            EXPECT_EQ(paths[i].isPrimary, index == 0);
            const SeriesData& all = data[static_cast<std::size_t>(index)];
            for (const DataSeries series : allDataSeries)
                ASSERT_TRUE(areSame(visible[i].seriesData[series], filtered(all[series].span(), range)));
            const HorizontalDistanceSeriesData& whole = horizontal.at(shown[i]->id);
            ASSERT_TRUE(areSame(paths[i].traveled, filtered(whole.traveled.span(), range)));
            ASSERT_TRUE(areSame(paths[i].fromExit, filtered(whole.fromExit.span(), range)));
        }

        const std::vector<CompanionDistanceData> cut = cutDistanceData(tracks, distances, hidden, range);
        std::size_t count = 0;
        for (const CompanionDistanceData& distance : distances) {
            if (hidden.contains(tracks[0].id) || hidden.contains(distance.id))
                continue;
            ASSERT_LT(count, cut.size());
            for (const DistanceSeries series : allDistanceSeries)
                ASSERT_TRUE(areSame(cut[count].data[series], filtered(distance.data[series].span(), range)));
            ++count;
        }
        EXPECT_EQ(cut.size(), count);
    });
}

TEST(CutOfAnyPoints, isWhatAFilterLeaves)
{
    constexpr std::array few{-1.0, -0.0, 0.0, 0.5, 1.0, 1.0, 2.0, noNumber, infinity, -infinity};
    constexpr std::ptrdiff_t ordinary = 7; // of these can be sorted
    forSeeds(20'000, [&](Dice& dice) {
        Points points(static_cast<std::size_t>(dice.below(12)));
        const bool isOrdinary = dice.oneIn(2);
        for (ChartPoint& point : points)
            point.seconds = few[static_cast<std::size_t>(dice.below(isOrdinary ? ordinary : std::ssize(few)))];
        if (isOrdinary && dice.oneIn(2))
            std::ranges::sort(points, {}, &ChartPoint::seconds);
        for (std::size_t i = 0; i < points.size(); ++i)
            points[i].id = static_cast<std::int64_t>(i);
        const TimeRange first{.lo = dice.oneOf(few), .hi = dice.oneOf(few)};
        const TimeRange second{.lo = dice.oneOf(few), .hi = first.hi};
        const ChartPoints once = ChartPoints(points).cut(first.lo, first.hi);
        ASSERT_TRUE(areSame(once, filtered(points, first)));
        ASSERT_TRUE(areSame(once.cut(second.lo, second.hi), filtered(filtered(points, first), second)));
    });
}

TEST(NearestSample, isFoundByBothTieRules)
{
    forSeeds(20'000, [&](Dice& dice) {
        std::vector<double> values(static_cast<std::size_t>(dice.below(12)));
        for (double& value : values)
            value = static_cast<double>(dice.below(10)) / 2.0; // some are equal, and ties are exact
        const bool ascends = !dice.oneIn(5);
        if (ascends)
            std::ranges::sort(values);
        const double seconds = static_cast<double>(dice.between(-4, 24)) / 4.0;
        const std::ptrdiff_t later = nearestBy(values, seconds, Tie::later);
        const std::ptrdiff_t earlier = nearestBy(values, seconds, Tie::earlier);
        ASSERT_EQ(later, static_cast<std::ptrdiff_t>(naive::nearest(values, seconds, false)));
        ASSERT_EQ(earlier, static_cast<std::ptrdiff_t>(naive::nearest(values, seconds, true)));
        ASSERT_EQ(nearestIndex(values, seconds), later);
        for (const double value : values) {
            const bool isNearer =
                std::fabs(value - seconds) < std::fabs(values[static_cast<std::size_t>(later)] - seconds);
            ASSERT_FALSE(ascends && isNearer);
        }
    });
}

} // namespace

} // namespace ospra::properties
