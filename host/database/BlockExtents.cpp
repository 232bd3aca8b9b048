#include "database/BlockExtents.h"

#include "database/AcDbAttribute.h"
#include "database/AcDbAttributeDefinition.h"
#include "database/AcDbBlockReference.h"
#include "database/AcDbBlockTableRecord.h"
#include "database/OpenObject.h"

#include <set>
#include <unordered_set>
#include <vector>

namespace host_db {
namespace {

/// Walks a tree of nested definitions with a stack of its own, since drawings may nest deeper than
/// the process's stack goes.
class BlockWalk {
public:
    explicit BlockWalk(AcDbExtents& box) : box_(box) {}

    void push(const AcDbBlockReference& reference, const AcGeMatrix3d& transform) {
        // Of an array only the cells at its corners can reach its box.
        const std::set<int> columns{0, reference.columns() - 1};
        const std::set<int> rows{0, reference.rows() - 1};
        for (const int column : columns) {
            for (const int row : rows) {
                work_.push_back(
                    {reference.blockTableRecord(),
                     transform * cellShift(reference, column, row) * reference.blockTransform(),
                     false});
            }
        }
    }

    /// Returns false when there was too much to visit.
    bool run() {
        while (!work_.empty()) {
            const Step step = work_.back();
            work_.pop_back();
            if (step.leaves) {
                path_.erase(step.block);
            } else if (!enter(step)) {
                return false;
            }
        }
        return true;
    }

    bool foundAny() const { return foundAny_; }

private:
    struct Step {
        AcDbObjectId block;
        AcGeMatrix3d transform;
        bool leaves;
    };

    /// From a reference's first cell to another, in world directions.
    static AcGeMatrix3d cellShift(const AcDbBlockReference& reference, int column, int row) {
        AcGeVector3d shift(column * reference.columnSpacing(), row * reference.rowSpacing(), 0.0);
        AcGeMatrix3d turn;
        turn.setToRotation(reference.rotation(), {0.0, 0.0, 1.0});
        AcGeMatrix3d matrix;
        return matrix.setToTranslation(AcGeMatrix3d::planeToWorld(reference.normal()) *
                                       (turn * shift));
    }

    bool enter(const Step& step) {
        const auto* block = peek<AcDbBlockTableRecord>(step.block);
        if (block == nullptr || !path_.insert(step.block).second) {
            return true;
        }
        work_.push_back({step.block, {}, true});
        if (!seen_.insert(step.block).second) {
            repeated_ += block->entityIds().size() + 1;
            if (repeated_ > kMaxRepeatedVisits) {
                return false;
            }
        }
        for (const AcDbObjectId id : block->entityIds()) {
            if (const auto* entity = peek<AcDbEntity>(id)) {
                show(*entity, step.transform);
            }
        }
        return true;
    }

    void show(const AcDbEntity& entity, const AcGeMatrix3d& transform) {
        if (const auto* nested = AcDbBlockReference::cast(&entity)) {
            push(*nested, transform);
        } else if (!entity.isKindOf(AcDbAttributeDefinition::desc()) &&
                   !entity.isKindOf(AcDbAttribute::desc())) {
            foundAny_ = entity.addExtents(transform, box_) || foundAny_;
        }
    }

    AcDbExtents& box_;
    std::vector<Step> work_;
    std::unordered_set<AcDbObjectId> path_;
    std::unordered_set<AcDbObjectId> seen_;
    std::size_t repeated_ = 0;
    bool foundAny_ = false;
};

} // namespace

bool addBlockExtents(const AcDbBlockReference& reference, const AcGeMatrix3d& transform,
                     AcDbExtents& box) {
    AcDbExtents found;
    BlockWalk walk(found);
    walk.push(reference, transform);
    if (!walk.run() || !walk.foundAny()) {
        return false;
    }
    box.addExt(found);
    return true;
}

} // namespace host_db
