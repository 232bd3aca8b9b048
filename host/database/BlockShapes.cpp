#include "database/BlockShapes.h"

#include "database/AcDbAttribute.h"
#include "database/AcDbAttributeDefinition.h"
#include "database/AcDbBlockTableRecord.h"
#include "database/AcDbCurve.h"
#include "database/OpenObject.h"

#include <algorithm>

namespace host_db {
namespace {

/// Symbols are drawn with fewer; what is kept of larger definitions would take too much memory.
constexpr std::size_t kMostPieces = 16;

bool isAttribute(const AcDbEntity& entity) {
    return entity.isKindOf(AcDbAttributeDefinition::desc()) ||
           entity.isKindOf(AcDbAttribute::desc());
}

/// False for what is no curve, for splines, whose pieces lie in the entity, and for too many.
bool addPieces(const AcDbEntity& entity, std::vector<CurvePiece>& pieces) {
    const auto* curve = AcDbCurve::cast(&entity);
    if (curve == nullptr) {
        return isAttribute(entity);
    }
    const CurvePath path = curve->path();
    if (pieces.size() + path.size() > kMostPieces) {
        return false;
    }
    for (std::size_t i = 0; i < path.size(); ++i) {
        if (std::holds_alternative<SplinePiece>(path[i])) {
            return false;
        }
        pieces.push_back(path[i]);
    }
    return true;
}

/// False for a definition that is to be walked.
bool readPieces(const AcDbBlockTableRecord& block, std::vector<CurvePiece>& pieces) {
    return std::all_of(block.entityIds().begin(), block.entityIds().end(), [&](AcDbObjectId id) {
        const auto* entity = peek<AcDbEntity>(id);
        return entity == nullptr || addPieces(*entity, pieces);
    });
}

} // namespace

const std::vector<CurvePiece>* BlockShapes::piecesOf(const AcDbBlockTableRecord& block,
                                                     std::uint64_t revision) {
    const AcDbObjectId id = block.objectId();
    Shape& shape = shapes_[static_cast<std::uint64_t>(id.asOldId()) % kPlaces];
    const std::size_t entities = block.entityIds().size();
    if (shape.block != id || shape.revision != revision || shape.entities != entities) {
        shape.block.setNull();
        shape.pieces.clear();
        shape.isPlain = readPieces(block, shape.pieces);
        if (!shape.isPlain) {
            shape.pieces = {};
        }
        shape.block = id;
        shape.revision = revision;
        shape.entities = entities;
    }
    return shape.isPlain ? &shape.pieces : nullptr;
}

} // namespace host_db
