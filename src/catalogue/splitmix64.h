#pragma once

#include <QtGlobal>

#include <cstddef>

// A small pseudo-random generator (SplitMix64) whose output is the same on every platform
// and library, unlike the standard distributions, so a seed always makes the same catalogue.
class SplitMix64
{
public:
    explicit SplitMix64(quint64 seed) : m_state(seed) {}

    quint64 next()
    {
        quint64 z = (m_state += 0x9E3779B97F4A7C15ull);
        z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9ull;
        z = (z ^ (z >> 27)) * 0x94D049BB133111EBull;
        return z ^ (z >> 31);
    }

    // A whole number from 0 to bound - 1; the slight bias of the remainder does not matter here.
    int below(int bound) { return int(next() % quint64(bound)); }

    int between(int low, int high) { return low + below(high - low + 1); }

    bool chance(int percent) { return below(100) < percent; }

    template<typename T, std::size_t N>
    const T &pick(const T (&items)[N]) { return items[below(int(N))]; }

private:
    quint64 m_state;
};
