#include "editor/PlanView.h"

#include "database/AcDbText.h"
#include "database/NumericCurve.h"
#include "database/OpenObject.h"
#include "database/ShownPieces.h"
#include "database/SymbolTables.h"
#include "geometry/RoundingNoise.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace host_ed {
namespace {

using host_db::PlanePiece;

struct Box {
    AcGePoint2d low;
    AcGePoint2d high;
};

/// A box that holds the piece; an arc's is that of its whole ellipse or wider.
Box boxOf(const PlanePiece& piece) {
    if (piece.isArc) {
        const AcGeVector2d reach(std::hypot(piece.b.x, piece.c.x),
                                 std::hypot(piece.b.y, piece.c.y));
        return {piece.a - reach, piece.a + reach};
    }
    const AcGePoint2d end = piece.a + piece.b;
    return {{std::min(piece.a.x, end.x), std::min(piece.a.y, end.y)},
            {std::max(piece.a.x, end.x), std::max(piece.a.y, end.y)}};
}

/// The corner of the piece's box that is farthest out, in space.
AcGePoint3d farCorner(const PlanePiece& piece) {
    const Box box = boxOf(piece);
    return {std::max(std::abs(box.low.x), std::abs(box.high.x)),
            std::max(std::abs(box.low.y), std::abs(box.high.y)), 0.0};
}

double closestAngle(const PlanePiece& arc, const AcGePoint2d& point) {
    std::vector<double> breaks;
    constexpr int kParts = 8;
    for (int i = 0; i <= kParts; ++i) {
        breaks.push_back(i == kParts ? arc.to : arc.from + (arc.to - arc.from) * i / kParts);
    }
    return host_db::leastOver(
        [&](double angle) { return (host_db::pointAt(arc, angle) - point).lengthSqrd(); }, breaks);
}

bool isOn(const PlanePiece& piece, const AcGePoint2d& point, double slack) {
    return host_db::pointAt(piece, closestParam(piece, point)).distanceTo(point) <= slack;
}

/// The sides of a text's box, which lies along the world's axes.
std::vector<PlanePiece> boxSides(const AcDbText& text, const PlanView& view) {
    AcDbExtents box;
    if (text.getGeomExtents(box) != Acad::eOk) {
        return {};
    }
    const AcGePoint3d low = box.minPoint();
    const AcGePoint3d high = box.maxPoint();
    const AcGePoint3d corners[] = {
        low, {high.x, low.y, low.z}, {high.x, high.y, low.z}, {low.x, high.y, low.z}};
    std::vector<PlanePiece> sides;
    for (std::size_t i = 0; i < 4; ++i) {
        sides.push_back(
            PlanView::segment(view.pointOf(corners[i]), view.pointOf(corners[(i + 1) % 4])));
    }
    return sides;
}

} // namespace

AcGePoint2d PlanView::pointOf(const AcGePoint3d& world) const {
    const AcGePoint3d seen = toPlan_ * world;
    return {seen.x, seen.y};
}

PlanePiece PlanView::pieceOf(const host_db::CurvePiece& piece) const {
    return host_db::planePiece(piece, toPlan_);
}

PlanePiece PlanView::segment(const AcGePoint2d& from, const AcGePoint2d& to) {
    PlanePiece piece;
    piece.a = from;
    piece.b = to - from;
    return piece;
}

std::vector<PlanePiece> PlanView::shown(const AcDbEntity& entity) const {
    if (const auto* text = AcDbText::cast(&entity)) {
        return boxSides(*text, *this);
    }
    std::vector<PlanePiece> pieces;
    for (const host_db::CurvePiece& piece : host_db::shownPieces(entity)) {
        pieces.push_back(pieceOf(piece));
    }
    return pieces;
}

double planSlack(const PlanePiece& one, const PlanePiece& other) {
    return host_geometry::meetingDistance(
        AcGeContext::gTol, host_geometry::roundingNoise({farCorner(one), farCorner(other)}));
}

bool areApart(const PlanePiece& one, const PlanePiece& other) {
    const Box a = boxOf(one);
    const Box b = boxOf(other);
    const double slack = planSlack(one, other);
    return a.low.x > b.high.x + slack || b.low.x > a.high.x + slack || a.low.y > b.high.y + slack ||
           b.low.y > a.high.y + slack;
}

double closestParam(const PlanePiece& piece, const AcGePoint2d& point) {
    if (piece.isArc) {
        return closestAngle(piece, point);
    }
    const double squared = piece.b.lengthSqrd();
    return squared == 0.0 ? 0.0
                          : std::clamp((point - piece.a).dotProduct(piece.b) / squared, 0.0, 1.0);
}

bool touch(const PlanePiece& one, const PlanePiece& other) {
    if (areApart(one, other)) {
        return false;
    }
    const double slack = planSlack(one, other);
    return !host_db::meetings(one, other, slack).empty() ||
           isOn(one, host_db::pointAt(other, other.from), slack) ||
           isOn(one, host_db::pointAt(other, other.to), slack) ||
           isOn(other, host_db::pointAt(one, one.from), slack) ||
           isOn(other, host_db::pointAt(one, one.to), slack);
}

bool isShown(const AcDbEntity& entity) {
    const auto* layer = host_db::peek<AcDbLayerTableRecord>(entity.layerId());
    return entity.visibility() == AcDb::kVisible &&
           (layer == nullptr || (!layer->isOff() && !layer->isFrozen()));
}

} // namespace host_ed
