#pragma once

#include "svg/Page.h"

#include <unordered_map>
#include <vector>

namespace pipenet {

/// A text's room on the page: a box turned about its centre.
struct LabelRoom {
    PagePoint center;
    double width = 0.0;
    double height = 0.0;
    double angle = 0.0; ///< radians, clockwise on the page
};

/// Keeps labels apart from one another and from what must not be covered, and tells how much line
/// work a label would hide.
class LabelPlacer {
public:
    explicit LabelPlacer(const PageBox& area) : area_(area) {}

    /// Nothing may be put here.
    void block(const PageBox& box);
    /// Line work, which a label may hide but had better not.
    void addLine(const PagePoint& from, const PagePoint& to);

    /// Whether the room is free and lies within the area.
    bool isFree(const LabelRoom& room) const;
    /// How much line work lies under the room, in steps of some pixels.
    int hidden(const LabelRoom& room) const;
    /// Takes the room.
    void take(const LabelRoom& room);

private:
    using Cell = long long;

    static std::vector<PageBox> tiles(const LabelRoom& room);
    template<class Visit>
    static bool anyCell(const PageBox& box, const Visit& visit);

    PageBox area_;
    std::unordered_map<Cell, std::vector<PageBox>> taken_;
    std::unordered_map<Cell, std::vector<PagePoint>> ink_;
};

} // namespace pipenet
