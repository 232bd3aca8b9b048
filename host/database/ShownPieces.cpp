#include "database/ShownPieces.h"

#include "database/AcDbCurve.h"
#include "database/BlockWalk.h"
#include "database/NurbsCurve.h"

namespace host_db {
namespace {

void addChords(const NurbsCurve& curve, std::vector<CurvePiece>& pieces) {
    const std::vector<double> knots = curve.spans();
    AcGePoint3d from = curve.pointAt(curve.startParam());
    for (std::size_t i = 1; i < knots.size(); ++i) {
        for (int k = 1; k <= kChords; ++k) {
            const AcGePoint3d to =
                curve.pointAt(knots[i - 1] + (knots[i] - knots[i - 1]) * k / kChords);
            pieces.emplace_back(SegmentPiece{from, to});
            from = to;
        }
    }
}

} // namespace

void addPlain(const CurvePiece& piece, std::vector<CurvePiece>& pieces) {
    if (const auto* spline = std::get_if<SplinePiece>(&piece)) {
        addChords(*spline->curve, pieces);
    } else {
        pieces.push_back(piece);
    }
}

CurvePiece transformed(const CurvePiece& piece, const AcGeMatrix3d& transform) {
    if (const auto* arc = std::get_if<ArcPiece>(&piece)) {
        return ArcPiece{
            transform * arc->center, transform * arc->u,  transform * arc->v, arc->from, arc->to,
            transform * arc->start,  transform * arc->end};
    }
    const auto& segment = std::get<SegmentPiece>(piece);
    return SegmentPiece{transform * segment.start, transform * segment.end};
}

std::vector<CurvePiece> shownPieces(const AcDbEntity& entity) {
    std::vector<CurvePiece> pieces;
    const auto addCurve = [&](const AcDbEntity& shown, const AcGeMatrix3d& transform) {
        const auto* curve = AcDbCurve::cast(&shown);
        const CurvePath path = curve == nullptr ? CurvePath() : curve->path();
        const std::size_t first = pieces.size();
        for (std::size_t i = 0; i < path.size(); ++i) {
            addPlain(path[i], pieces);
        }
        for (std::size_t i = first; i < pieces.size(); ++i) {
            pieces[i] = transformed(pieces[i], transform);
        }
    };
    const auto* reference = AcDbBlockReference::cast(&entity);
    if (reference == nullptr) {
        addCurve(entity, AcGeMatrix3d::kIdentity);
    } else if (!BlockWalk(BlockWalk::Cells::All, addCurve)
                    .run(*reference, AcGeMatrix3d::kIdentity)) {
        pieces.clear();
    }
    return pieces;
}

} // namespace host_db
