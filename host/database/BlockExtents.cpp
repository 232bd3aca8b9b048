#include "database/BlockExtents.h"

#include "database/AcDbBlockTableRecord.h"
#include "database/AcDbDatabase.h"
#include "database/BlockShapes.h"
#include "database/BlockWalk.h"
#include "database/CurvePieces.h"
#include "database/OpenObject.h"

namespace host_db {
namespace {

/// The definition's curves as far as they are remembered; nullptr for a reference that is to be
/// walked, as an array is.
const std::vector<CurvePiece>* rememberedPieces(const AcDbBlockReference& reference) {
    if (reference.columns() != 1 || reference.rows() != 1) {
        return nullptr;
    }
    const auto* block = peek<AcDbBlockTableRecord>(reference.blockTableRecord());
    if (block == nullptr) {
        return nullptr;
    }
    const AcDbDatabase& home = *block->database();
    return home.blockShapes().piecesOf(*block, home.revision());
}

/// Grows `box` by the curves, in the order in which a walk comes to them. False without any.
bool addPieces(const std::vector<CurvePiece>& pieces, const AcGeMatrix3d& transform,
               AcDbExtents& box) {
    for (const CurvePiece& piece : pieces) {
        if (const auto* arc = std::get_if<ArcPiece>(&piece)) {
            addExtents(*arc, transform, box);
        } else {
            addExtents(std::get<SegmentPiece>(piece), transform, box);
        }
    }
    return !pieces.empty();
}

bool addWalk(const AcDbBlockReference& reference, const AcGeMatrix3d& transform, AcDbExtents& box) {
    bool foundAny = false;
    BlockWalk walk(BlockWalk::Cells::Corners,
                   [&](const AcDbEntity& entity, const AcGeMatrix3d& shown) {
                       foundAny = entity.addExtents(shown, box) || foundAny;
                   });
    return walk.run(reference, transform) && foundAny;
}

} // namespace

bool addBlockExtents(const AcDbBlockReference& reference, const AcGeMatrix3d& transform,
                     AcDbExtents& box) {
    AcDbExtents found;
    const std::vector<CurvePiece>* pieces = rememberedPieces(reference);
    const bool foundAny = pieces != nullptr
                              ? addPieces(*pieces, drawnUnder(reference, transform), found)
                              : addWalk(reference, transform, found);
    if (foundAny) {
        box.addExt(found);
    }
    return foundAny;
}

} // namespace host_db
