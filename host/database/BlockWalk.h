#pragma once

#include "database/AcDbBlockReference.h"

#include <functional>
#include <unordered_set>
#include <vector>

namespace host_db {

/// The map from the definition to where a reference is drawn under `transform`.
AcGeMatrix3d drawnUnder(const AcDbBlockReference& reference, const AcGeMatrix3d& transform);

/// Shows the entities that a block reference draws, through nested references of any depth, each
/// with the transform under which it is drawn. Attributes and their definitions are left out, and
/// so is a definition inside itself. The order is not that of the drawing.
///
/// The tree of definitions is walked with a stack of its own, since drawings may nest deeper than
/// the process's stack goes.
class BlockWalk {
public:
    /// Which cells of an arrayed reference are walked: all, or those at its corners, which alone
    /// can reach its box.
    enum class Cells { All, Corners };
    using Show = std::function<void(const AcDbEntity& entity, const AcGeMatrix3d& transform)>;

    BlockWalk(Cells cells, Show show) : cells_(cells), show_(std::move(show)) {}

    /// False, with part of it shown, when there is too much to visit, see kMaxRepeatedVisits.
    bool run(const AcDbBlockReference& reference, const AcGeMatrix3d& transform);

private:
    enum class StepKind { Outermost, Nested, Leaving };
    struct Step {
        StepKind kind;
        AcDbObjectId block;
        AcGeMatrix3d transform;
    };

    void push(StepKind kind, const AcDbBlockReference& reference, const AcGeMatrix3d& transform);
    void pushCell(StepKind kind, const AcDbBlockReference& reference, const AcGeMatrix3d& transform,
                  int column, int row);
    void enter(const Step& step);
    bool entersPath(const Step& step);
    bool wasSeen(const Step& step);
    void show(const AcDbEntity& entity, const AcGeMatrix3d& transform);
    bool isTooMuch() const;

    Cells cells_;
    Show show_;
    std::vector<Step> work_;
    // The outermost definition, which is on the path throughout, stands by itself: most definitions
    // nest nothing, and then the sets stay empty.
    AcDbObjectId outermost_;
    bool outermostWasSeen_ = false;
    std::unordered_set<AcDbObjectId> path_;
    std::unordered_set<AcDbObjectId> seen_;
    std::size_t repeated_ = 0;
};

} // namespace host_db
