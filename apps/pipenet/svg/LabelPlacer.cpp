#include "svg/LabelPlacer.h"

#include <cmath>

namespace pipenet {

namespace {

constexpr double kCell = 40.0;
constexpr double kInkStep = 5.0;

int cellOf(double coordinate) {
    return static_cast<int>(std::floor(coordinate / kCell));
}

long long cellKey(int column, int row) {
    return static_cast<long long>(column) * 0x100000000LL + row;
}

} // namespace

template<class Visit>
bool LabelPlacer::anyCell(const PageBox& box, const Visit& visit) {
    for (int column = cellOf(box.left); column <= cellOf(box.right); ++column) {
        for (int row = cellOf(box.top); row <= cellOf(box.bottom); ++row) {
            if (visit(cellKey(column, row))) {
                return true;
            }
        }
    }
    return false;
}

/// A turned box as small upright ones along its length, so that all tests are between upright
/// boxes.
std::vector<PageBox> LabelPlacer::tiles(const LabelRoom& room) {
    if (room.angle == 0.0) {
        return {{room.center.x - room.width / 2.0, room.center.y - room.height / 2.0,
                 room.center.x + room.width / 2.0, room.center.y + room.height / 2.0}};
    }
    std::vector<PageBox> found;
    const int count = std::max(1, static_cast<int>(std::ceil(room.width / (room.height * 0.5))));
    const double step = room.width / count;
    const double cosine = std::cos(room.angle);
    const double sine = std::sin(room.angle);
    const double halfX = (step * std::abs(cosine) + room.height * std::abs(sine)) / 2.0;
    const double halfY = (step * std::abs(sine) + room.height * std::abs(cosine)) / 2.0;
    for (int i = 0; i < count; ++i) {
        const double along = (i + 0.5) * step - room.width / 2.0;
        const PagePoint center{room.center.x + along * cosine, room.center.y + along * sine};
        found.push_back({center.x - halfX, center.y - halfY, center.x + halfX, center.y + halfY});
    }
    return found;
}

void LabelPlacer::block(const PageBox& box) {
    anyCell(box, [&](Cell cell) {
        taken_[cell].push_back(box);
        return false;
    });
}

void LabelPlacer::addLine(const PagePoint& from, const PagePoint& to) {
    const double length = std::hypot(to.x - from.x, to.y - from.y);
    const int count = static_cast<int>(std::ceil(length / kInkStep));
    for (int i = 0; i < count; ++i) {
        const double part = (i + 0.5) / count;
        const PagePoint point{from.x + (to.x - from.x) * part, from.y + (to.y - from.y) * part};
        if (area_.holds(point)) {
            ink_[cellKey(cellOf(point.x), cellOf(point.y))].push_back(point);
        }
    }
}

bool LabelPlacer::isFree(const LabelRoom& room) const {
    for (const PageBox& tile : tiles(room)) {
        const bool isTaken = anyCell(tile, [&](Cell cell) {
            const auto found = taken_.find(cell);
            return found != taken_.end() &&
                   std::any_of(found->second.begin(), found->second.end(),
                               [&](const PageBox& box) { return box.overlaps(tile); });
        });
        if (isTaken || !area_.holds(tile)) {
            return false;
        }
    }
    return true;
}

int LabelPlacer::hidden(const LabelRoom& room) const {
    std::ptrdiff_t count = 0;
    for (const PageBox& tile : tiles(room)) {
        anyCell(tile, [&](Cell cell) {
            const auto found = ink_.find(cell);
            if (found != ink_.end()) {
                count += std::count_if(found->second.begin(), found->second.end(),
                                       [&](const PagePoint& point) { return tile.holds(point); });
            }
            return false;
        });
    }
    return static_cast<int>(count);
}

void LabelPlacer::take(const LabelRoom& room) {
    for (const PageBox& tile : tiles(room)) {
        block(tile);
    }
}

} // namespace pipenet
