#pragma once

#include "module/pressure/PressureTest.h"

#include <cstdint>

namespace module_tests {

/// A small crowded drawing of pressure pipes made of a seed: pipes that cross, touch, overlap and
/// continue one another, arcs on the same and on other circles, wells, meters and valves of all
/// sizes, two systems. Coordinates are multiples of a quarter, so that ties and exact touches are
/// frequent.
class RandomPressureDrawing {
public:
    struct Shape {
        int pipes;     ///< at most
        int arcsIn;    ///< one pipe in so many is an arc
        bool fittings; ///< wells, meters and valves too
        int mostArcs;
    };

    RandomPressureDrawing(std::uint32_t seed, const Shape& shape);

    /// Draws it and gives the ids of the pipes of 给水, in drawing order.
    Ids draw(PressureDrawing& drawing);

private:
    int upTo(int count);
    bool oneIn(int count) { return upTo(count) == 0; }
    AcGePoint3d anywhere();
    AcGePoint3d somewhereKnown();
    void drawPipe(PressureDrawing& drawing, Ids& ids);
    void drawFitting(PressureDrawing& drawing);

    std::uint32_t state_;
    Shape shape_;
    int arcs_ = 0;
    std::vector<AcGePoint3d> known_; ///< ends and middles of pipes drawn so far
};

} // namespace module_tests
