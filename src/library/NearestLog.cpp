#include "library/NearestLog.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <tuple>

namespace ospra {

namespace {

constexpr double exitTolerance = 45.0; // s; those who leave in one pass do so within less

} // namespace

NearestLog::NearestLog(std::span<const JumpFileEntry> entries) : m_entries(entries)
{
    m_candidates.reserve(entries.size());
    for (std::ptrdiff_t position = 0; const JumpFileEntry& entry : entries) {
        if (entry.freefallDate)
            m_candidates.push_back({.freefallDate = *entry.freefallDate, .position = position});
        ++position;
    }
    std::sort(m_candidates.begin(), m_candidates.end(), [](const Candidate& a, const Candidate& b) {
        return std::tie(a.freefallDate, a.position) < std::tie(b.freefallDate, b.position);
    });
    // Of several logs with one date the earliest always wins, so that the others need not be kept.
    const auto isSameDate = [](const Candidate& a, const Candidate& b) { return a.freefallDate == b.freefallDate; };
    m_candidates.erase(std::unique(m_candidates.begin(), m_candidates.end(), isSameDate), m_candidates.end());
}

const JumpFileEntry* NearestLog::find(Instant freefallDate) const
{
    // Dates lie a millisecond or more apart, so that no rounding makes two on one side equally far: the nearest is one
    // of the two neighbours.
    const auto after =
        std::lower_bound(m_candidates.begin(), m_candidates.end(), freefallDate,
                         [](const Candidate& candidate, Instant date) { return candidate.freefallDate < date; });
    const Candidate* best = nullptr;
    double bestDistance = 0.0;
    const auto consider = [&](const Candidate& candidate) {
        const double distance = std::abs(secondsBetween(freefallDate, candidate.freefallDate));
        const bool isBetter = best == nullptr || distance < bestDistance ||
                              (distance == bestDistance && candidate.position < best->position);
        if (isBetter) {
            best = &candidate;
            bestDistance = distance;
        }
    };
    if (after != m_candidates.begin())
        consider(*std::prev(after));
    if (after != m_candidates.end())
        consider(*after);
    if (best == nullptr || !(bestDistance < exitTolerance))
        return nullptr;
    return &m_entries[static_cast<std::size_t>(best->position)];
}

} // namespace ospra
