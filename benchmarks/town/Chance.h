#pragma once

#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

namespace benchmark_town {

/// Pseudo-random numbers that are the same for a seed on every machine and with every library.
class Chance {
public:
    explicit Chance(std::uint64_t seed) : state_(seed) {}

    std::uint64_t next() {
        state_ += 0x9E3779B97F4A7C15U;
        std::uint64_t mixed = state_;
        mixed = (mixed ^ (mixed >> 30U)) * 0xBF58476D1CE4E5B9U;
        mixed = (mixed ^ (mixed >> 27U)) * 0x94D049BB133111EBU;
        return mixed ^ (mixed >> 31U);
    }

    /// A number from 0 to `limit` less one; `limit` is at least 1.
    std::size_t below(std::size_t limit) { return static_cast<std::size_t>(next() % limit); }

    /// A number from `low` up to but not including `high`.
    double between(double low, double high) {
        constexpr double fractions = 9007199254740992.0; // 2 to the 53rd
        return low + (high - low) * (static_cast<double>(next() >> 11U) / fractions);
    }

    /// True `percent` times in a hundred.
    bool percent(std::size_t percent) { return below(100) < percent; }

    template<class Item>
    void shuffle(std::vector<Item>& items) {
        for (std::size_t i = items.size(); i > 1; --i) {
            std::swap(items[i - 1], items[below(i)]);
        }
    }

private:
    std::uint64_t state_;
};

} // namespace benchmark_town
