#include "library/groupJumps.h"

#include "library/NearestLog.h"
#include "library/stableMergeSort.h"

namespace ospra {

namespace {

/// The newest first. Where a date is missing the names decide, in falling order. That comparison is no strict weak
/// order: a date can stand before a name and the name before an earlier date while their names say otherwise.
std::vector<const JumpFileEntry*> sortedForList(std::span<const JumpFileEntry> entries, const NaturalOrder& names)
{
    std::vector<const JumpFileEntry*> sorted;
    sorted.reserve(entries.size());
    for (const JumpFileEntry& entry : entries)
        sorted.push_back(&entry);
    stableMergeSort(sorted, [&names](const JumpFileEntry* a, const JumpFileEntry* b) {
        if (a->jumpDate && b->jumpDate)
            return *a->jumpDate > *b->jumpDate;
        return names.compare(a->name, b->name) == std::weak_ordering::greater;
    });
    return sorted;
}

/// The log of each companion that belongs to the primary's log. Nothing is taken away: a companion's log may belong to
/// several jumps.
std::vector<JumpFileEntry> matchingEntries(const JumpFileEntry& primary, std::span<const NearestLog> companions)
{
    std::vector<JumpFileEntry> matching;
    if (!primary.freefallDate)
        return matching;
    matching.reserve(companions.size());
    for (const NearestLog& companion : companions) {
        if (const JumpFileEntry* const entry = companion.find(*primary.freefallDate))
            matching.push_back(*entry);
    }
    return matching;
}

} // namespace

std::vector<JumpGroup> groupJumps(std::span<const std::vector<JumpFileEntry>> entriesByJumper,
                                  const NaturalOrder& names)
{
    if (entriesByJumper.empty())
        return {};
    std::vector<NearestLog> companions;
    companions.reserve(entriesByJumper.size() - 1);
    for (const std::vector<JumpFileEntry>& entries : entriesByJumper.subspan(1))
        companions.emplace_back(entries);

    std::vector<JumpGroup> groups;
    groups.reserve(entriesByJumper.front().size());
    for (const JumpFileEntry* const primary : sortedForList(entriesByJumper.front(), names)) {
        groups.push_back({.id = makeUuid(),
                          .primaryEntry = *primary,
                          .companionEntries = matchingEntries(*primary, companions),
                          .jumpDate = primary->jumpDate});
    }
    return groups;
}

} // namespace ospra
