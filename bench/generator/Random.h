#ifndef IPC2581_BENCH_GENERATOR_RANDOM_H
#define IPC2581_BENCH_GENERATOR_RANDOM_H

#include <cstddef>
#include <cstdint>
#include <random>
#include <vector>

namespace ipc2581::bench {

// Numbers that are the same on every machine: the engine is fixed by the language, the standard distributions are
// not, so they are left out. The slight bias of the remainder does no harm here.
class Random {
public:
    explicit Random(std::uint64_t seed) : m_engine(seed) {}

    // 0 to count - 1; the count must not be 0.
    std::size_t Below(std::size_t count) { return static_cast<std::size_t>(m_engine() % count); }
    // Both ends included.
    std::int64_t Between(std::int64_t low, std::int64_t high)
    {
        return low + static_cast<std::int64_t>(m_engine() % static_cast<std::uint64_t>(high - low + 1));
    }
    bool Percent(std::uint64_t chance) { return m_engine() % 100 < chance; }

    template <typename Element>
    const Element & Of(const std::vector<Element> & elements)
    {
        return elements[Below(elements.size())];
    }
    template <typename Element, std::size_t Count>
    const Element & Of(const Element (&elements)[Count])
    {
        return elements[Below(Count)];
    }

private:
    std::mt19937_64 m_engine;
};

}  // namespace ipc2581::bench

#endif
