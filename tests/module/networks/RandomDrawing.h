#pragma once

#include "module/support/DrawingBuilder.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace module_tests {

/// A motion of the plan that keeps coordinates on their grid: quarter turns, then a shift by whole
/// numbers. `relief` other than 0 gives the places heights, up to so many eighths; one place in the
/// plan has one height.
struct Motion {
    int quarterTurns = 0;
    double shiftX = 0.0;
    double shiftY = 0.0;
    int relief = 0;

    AcGePoint3d operator()(const AcGePoint3d& point) const;
};

/// A small crowded drawing made of a seed: trees with gaps, bends and arcs, among pipes that cross,
/// overlap and end anywhere; wells that overlap; tanks; two systems. Coordinates are multiples of
/// an eighth, so that equal distances are equal to the last bit and ties are frequent.
class RandomDrawing {
public:
    explicit RandomDrawing(std::uint32_t seed);

    /// Draws it, always in the same order, and gives the ids in that order.
    std::vector<AcDbObjectId> draw(DrawingBuilder& drawing, const Motion& motion = {}) const;

private:
    struct Pipe {
        AcGePoint3d from;
        AcGePoint3d to;
        double bulge;
        bool storm;
    };
    struct RandomWell {
        AcGePoint3d at;
        int size;
        bool square;
        bool storm;
    };
    struct Tank {
        AcGePoint3d at;
        AcGePoint3d min;
        AcGePoint3d max;
    };

    int upTo(int count);
    bool oneIn(int count) { return upTo(count) == 0; }
    AcGePoint3d anywhere();
    AcGePoint3d nearAWell();
    double bulge();
    void addTree(int wells);
    void addRun(const AcGePoint3d& from, const AcGePoint3d& to);
    void addNoise(int pipes);
    void addTanks(int tanks);
    void shuffle();

    std::uint32_t state_;
    std::vector<Pipe> pipes_;
    std::vector<RandomWell> wells_;
    std::vector<Tank> tanks_;
};

/// The entity of a drawing that is asked for as the end of a path from another one, by the places
/// of both in `ids`; null for every third.
AcDbObjectId endFor(const std::vector<AcDbObjectId>& ids, std::size_t start, std::uint32_t seed);

} // namespace module_tests
