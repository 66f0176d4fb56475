#include "tilemap/client/Host.h"

#include <algorithm>
#include <cstddef>

namespace ospra {

namespace {

constexpr int connections = 4;      // to a host that answers one request after the other on each
constexpr int streams = 16;         // on the one connection of a host that speaks HTTP/2
constexpr std::size_t refusals = 3; // in a row, after which a host is left alone
constexpr int firstSilence = 30;    // s
constexpr int longestWait = 300;    // s

} // namespace

std::chrono::milliseconds Waits::beforeTry(int triesSoFar) const
{
    return std::min(triesSoFar * triesSoFar, longestWait) * m_unit;
}

std::chrono::milliseconds Waits::silence(int silencesSoFar) const
{
    const int doublings = std::clamp(silencesSoFar, 0, 4);
    return std::min(firstSilence << doublings, longestWait) * m_unit;
}

std::chrono::milliseconds Waits::asked(std::int64_t seconds) const
{
    return std::clamp(seconds, std::int64_t{0}, std::int64_t{longestWait}) * m_unit;
}

bool Host::hasRoom() const
{
    if (isDoubtful())
        return m_inFlight == 0;
    return m_inFlight < (m_usesHttp2 ? streams : connections);
}

void Host::answer(WaitClock::time_point now, bool usedHttp2)
{
    m_usesHttp2 = usedHttp2;
    m_lastAnswer = now;
    m_silences = 0;
    m_silentUntil = {};
}

void Host::refuse(const TileKey& request)
{
    m_refused.insert(request);
    m_isLeftAlone = m_isLeftAlone || m_refused.size() >= refusals;
}

void Host::fallSilent(WaitClock::time_point now, const Waits& waits)
{
    if (isSilent(now))
        return; // requests that were on their way together fail together
    m_silentUntil = now + waits.silence(m_silences);
    ++m_silences;
}

void Host::pause(WaitClock::time_point until)
{
    m_pausedUntil = std::max(m_pausedUntil, until);
}

} // namespace ospra
