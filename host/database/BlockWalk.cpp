#include "database/BlockWalk.h"

#include "database/AcDbAttribute.h"
#include "database/AcDbAttributeDefinition.h"
#include "database/AcDbBlockTableRecord.h"
#include "database/BlockExtents.h"
#include "database/OpenObject.h"

#include <utility>

namespace host_db {
namespace {

/// From a reference's first cell to another, in world directions.
AcGeMatrix3d cellShift(const AcDbBlockReference& reference, int column, int row) {
    AcGeVector3d shift(column * reference.columnSpacing(), row * reference.rowSpacing(), 0.0);
    AcGeMatrix3d turn;
    turn.setToRotation(reference.rotation(), {0.0, 0.0, 1.0});
    AcGeMatrix3d matrix;
    return matrix.setToTranslation(AcGeMatrix3d::planeToWorld(reference.normal()) * (turn * shift));
}

bool changesNothing(const AcGeMatrix3d& matrix) {
    if (&matrix == &AcGeMatrix3d::kIdentity) {
        return true;
    }
    AcGeTol exactly;
    exactly.setEqualPoint(0.0);
    return matrix.isEqualTo(AcGeMatrix3d::kIdentity, exactly);
}

} // namespace

AcGeMatrix3d drawnUnder(const AcDbBlockReference& reference, const AcGeMatrix3d& transform) {
    const AcGeMatrix3d shown = reference.blockTransform();
    return changesNothing(transform) ? shown : transform * shown;
}

bool BlockWalk::isTooMuch() const {
    return repeated_ > kMaxRepeatedVisits;
}

bool BlockWalk::run(const AcDbBlockReference& reference, const AcGeMatrix3d& transform) {
    outermost_ = reference.blockTableRecord();
    push(StepKind::Outermost, reference, transform);
    while (!work_.empty() && !isTooMuch()) {
        const Step step = work_.back();
        work_.pop_back();
        if (step.kind == StepKind::Leaving) {
            path_.erase(step.block);
        } else {
            enter(step);
        }
    }
    return !isTooMuch();
}

void BlockWalk::pushCell(StepKind kind, const AcDbBlockReference& reference,
                         const AcGeMatrix3d& transform, int column, int row) {
    const bool isFirst = column == 0 && row == 0;
    const AcGeMatrix3d cell = isFirst ? transform : transform * cellShift(reference, column, row);
    work_.push_back({kind, reference.blockTableRecord(), drawnUnder(reference, cell)});
}

void BlockWalk::push(StepKind kind, const AcDbBlockReference& reference,
                     const AcGeMatrix3d& transform) {
    const int columns = reference.columns();
    const int rows = reference.rows();
    if (cells_ == Cells::Corners) {
        const int columnStep = columns > 1 ? columns - 1 : 1;
        const int rowStep = rows > 1 ? rows - 1 : 1;
        for (int column = 0; column < columns; column += columnStep) {
            for (int row = 0; row < rows; row += rowStep) {
                pushCell(kind, reference, transform, column, row);
            }
        }
        return;
    }
    repeated_ += static_cast<std::size_t>(columns) * static_cast<std::size_t>(rows) - 1;
    for (int column = 0; column < columns && !isTooMuch(); ++column) {
        for (int row = 0; row < rows; ++row) {
            pushCell(kind, reference, transform, column, row);
        }
    }
}

/// False for a definition inside itself.
bool BlockWalk::entersPath(const Step& step) {
    if (step.kind == StepKind::Outermost) {
        return true;
    }
    if (step.block == outermost_ || !path_.insert(step.block).second) {
        return false;
    }
    work_.push_back({StepKind::Leaving, step.block, {}});
    return true;
}

/// Whether the definition was entered before, as it is from now on.
bool BlockWalk::wasSeen(const Step& step) {
    return step.kind == StepKind::Outermost ? std::exchange(outermostWasSeen_, true)
                                            : !seen_.insert(step.block).second;
}

void BlockWalk::enter(const Step& step) {
    const auto* block = peek<AcDbBlockTableRecord>(step.block);
    if (block == nullptr || !entersPath(step)) {
        return;
    }
    if (wasSeen(step)) {
        repeated_ += block->entityIds().size() + 1;
        if (isTooMuch()) {
            return;
        }
    }
    for (const AcDbObjectId id : block->entityIds()) {
        if (const auto* entity = peek<AcDbEntity>(id)) {
            show(*entity, step.transform);
        }
    }
}

void BlockWalk::show(const AcDbEntity& entity, const AcGeMatrix3d& transform) {
    if (const auto* nested = AcDbBlockReference::cast(&entity)) {
        push(StepKind::Nested, *nested, transform);
    } else if (!entity.isKindOf(AcDbAttributeDefinition::desc()) &&
               !entity.isKindOf(AcDbAttribute::desc())) {
        show_(entity, transform);
    }
}

} // namespace host_db
