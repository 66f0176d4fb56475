#include "workspace/stepCursor.h"

#include <limits>

namespace ospra {

namespace {

constexpr double leapShare = 1.0 / 20.0; // of what is shown
constexpr double endless = std::numeric_limits<double>::infinity();

bool contains(TimeRange range, double seconds)
{
    return seconds >= range.lo && seconds <= range.hi;
}

/// The least of the samples in the range that lies beyond a moment; absent where there is none.
std::optional<double> firstAfter(std::span<const double> elapsed, TimeRange range, double moment)
{
    std::optional<double> first;
    for (const double seconds : elapsed)
        if (contains(range, seconds) && seconds > moment && (!first || seconds < *first))
            first = seconds;
    return first;
}

/// The greatest of the samples in the range that lies before a moment.
std::optional<double> lastBefore(std::span<const double> elapsed, TimeRange range, double moment)
{
    std::optional<double> last;
    for (const double seconds : elapsed)
        if (contains(range, seconds) && seconds < moment && (!last || seconds > *last))
            last = seconds;
    return last;
}

} // namespace

std::optional<double> stepCursor(std::span<const double> elapsed, TimeRange shown, std::optional<double> cursor,
                                 CursorStep step)
{
    const std::optional<double> first = firstAfter(elapsed, shown, -endless);
    const std::optional<double> last = lastBefore(elapsed, shown, endless);
    const bool isInSight = cursor && contains(shown, *cursor);
    const double leap = (shown.hi - shown.lo) * leapShare;
    // A leap goes to the first sample at its distance or beyond, which is one sample at least.
    const auto forward = [&](double distance) {
        const auto next = isInSight ? firstAfter(elapsed, {*cursor + distance, shown.hi}, *cursor) : first;
        return next ? next : last;
    };
    const auto back = [&](double distance) {
        const auto next = isInSight ? lastBefore(elapsed, {shown.lo, *cursor - distance}, *cursor) : last;
        return next ? next : first;
    };
    switch (step) {
    case CursorStep::back: return back(0.0);
    case CursorStep::forward: return forward(0.0);
    case CursorStep::leapBack: return back(leap);
    case CursorStep::leapForward: return forward(leap);
    case CursorStep::toStart: return first;
    case CursorStep::toEnd: return last;
    }
    return std::nullopt;
}

} // namespace ospra
