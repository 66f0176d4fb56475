#pragma once

#include "tilemap/MapSource.h"

#include <chrono>
#include <set>

namespace ospra {

using WaitClock = std::chrono::steady_clock;

/// How long is waited for what, in a unit that is a second but in tests.
class Waits {
public:
    explicit Waits(std::chrono::milliseconds unit) : m_unit(unit) {}

    /// For a byte, and for a whole answer.
    [[nodiscard]] std::chrono::milliseconds idleLimit() const { return 30 * m_unit; }
    [[nodiscard]] std::chrono::milliseconds totalLimit() const { return 60 * m_unit; }
    /// Before the next try of a request, after so many.
    [[nodiscard]] std::chrono::milliseconds beforeTry(int triesSoFar) const;
    /// Before a host that could not be reached is tried again: 30, 60, 120 and so on up to 300.
    [[nodiscard]] std::chrono::milliseconds silence(int silencesSoFar) const;
    /// What a server asks to wait, within reason.
    [[nodiscard]] std::chrono::milliseconds asked(std::int64_t seconds) const;

private:
    std::chrono::milliseconds m_unit;
};

/// How one host has treated us, and so how it is to be treated.
///
/// Two troubles are told apart. A host that answers that it does not want us (401 or 403, 429 to the last try, a
/// refused connection, no TLS) to three requests in a row is left alone for the rest of the run. A host that cannot be
/// reached (no such name, no route, no answer in time, broken off) falls silent: nothing is asked of it for a while
/// that grows from half a minute to five, then a single request shows whether it is back.
class Host {
public:
    /// Whether a request may begin now, as far as the number of those on their way goes.
    [[nodiscard]] bool hasRoom() const;
    [[nodiscard]] bool isLeftAlone() const { return m_isLeftAlone; }
    [[nodiscard]] bool isSilent(WaitClock::time_point now) const { return now < m_silentUntil; }
    /// Whether it has been silent and has not yet shown that it is back.
    [[nodiscard]] bool isDoubtful() const { return m_silences > 0; }
    [[nodiscard]] bool hasAnsweredSince(WaitClock::time_point time) const { return m_lastAnswer > time; }
    [[nodiscard]] WaitClock::time_point silentUntil() const { return m_silentUntil; }
    [[nodiscard]] WaitClock::time_point pausedUntil() const { return m_pausedUntil; }

    void begin() { ++m_inFlight; }
    void end() { --m_inFlight; }
    /// It has answered, whatever it said, and so can be reached.
    void answer(WaitClock::time_point now, bool usedHttp2);
    /// It has given what it was asked for.
    void succeed() { m_refused.clear(); }
    void refuse(const TileKey& request);
    void fallSilent(WaitClock::time_point now, const Waits& waits);
    void pause(WaitClock::time_point until);

private:
    int m_inFlight = 0;
    bool m_usesHttp2 = false;
    bool m_isLeftAlone = false;
    int m_silences = 0;
    std::set<TileKey> m_refused{}; ///< requests refused since the last success
    WaitClock::time_point m_lastAnswer{};
    WaitClock::time_point m_silentUntil{};
    WaitClock::time_point m_pausedUntil{}; ///< as it asked itself
};

} // namespace ospra
