#pragma once

#include <cmath>
#include <cstddef>
#include <cstdint>

namespace ospra {

/// The source of all chance in the samples: the same seed gives the same numbers on every machine, which the
/// distributions of the standard library do not promise. SplitMix64 (Steele, Lea, Flood: "Fast splittable pseudorandom
/// number generators", 2014).
class Random {
public:
    explicit Random(std::uint64_t seed) : m_state(seed) {}

    /// A generator of its own for one part of the work, so that a change in one part leaves the others as they were.
    [[nodiscard]] Random fork(std::uint64_t stream) const
    {
        Random child(m_state ^ (stream + 1) * 0xD1342543DE82EF95ULL);
        return Random(child.next());
    }

    /// At least 0 and below 1.
    double uniform() { return static_cast<double>(next() >> 11U) * 0x1.0p-53; }

    double between(double lo, double hi) { return lo + (hi - lo) * uniform(); }

    bool chance(double probability) { return uniform() < probability; }

    /// A whole number from `lo` to `hi`, both included.
    int wholeBetween(int lo, int hi) { return lo + static_cast<int>(uniform() * static_cast<double>(hi - lo + 1)); }

    std::size_t index(std::size_t count) { return static_cast<std::size_t>(uniform() * static_cast<double>(count)); }

    /// Bell-shaped with mean 0 and deviation 1, and never beyond 3.5: the sum of four even chances.
    double bell()
    {
        double sum = -2.0;
        for (int i = 0; i < 4; ++i)
            sum += uniform();
        return sum * 1.7320508075688772;
    }

private:
    std::uint64_t next()
    {
        m_state += 0x9E3779B97F4A7C15ULL;
        std::uint64_t z = m_state;
        z = (z ^ (z >> 30U)) * 0xBF58476D1CE4E5B9ULL;
        z = (z ^ (z >> 27U)) * 0x94D049BB133111EBULL;
        return z ^ (z >> 31U);
    }

    std::uint64_t m_state;
};

/// A value that wanders about 0 with deviation 1 and forgets where it was after some time (Ornstein and Uhlenbeck).
class Wander {
public:
    /// @param memory s
    Wander(double memory, Random random) : m_random(random), m_memory(memory), m_value(m_random.bell()) {}

    double step(double seconds)
    {
        const double share = seconds < m_memory ? seconds / m_memory : 1.0;
        m_value += -m_value * share + std::sqrt(share * (2.0 - share)) * m_random.bell();
        return m_value;
    }

private:
    Random m_random;
    double m_memory;
    double m_value;
};

} // namespace ospra
