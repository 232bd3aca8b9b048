#pragma once

#include <memory>

#include "records/CandidateMode.h"
#include "records/Indices.h"
#include "records/PlanBox.h"

namespace tkvlt {

class PressureNetworkSearch;

/// Answers which pool entries and segments of a pressure search can matter at a place. Whatever
/// could pass a rule's test there is among the answers, in pool order and without what has been
/// taken; the test itself stays with the rule. All boxes are in plan. What a step asks can be asked
/// from the call that ends the step before it to the one that ends the step itself.
class PressureCandidates {
public:
    virtual ~PressureCandidates() = default;

    /// The pipes of the pool are going to be cut where they miss one another by no more than `gap`,
    /// drawing units, and rounding.
    virtual void CuttingBegins(double gap) = 0;
    /// Pipes behind `pipe` in the pool, pieces included, that may come as near to it with their
    /// curve or chord as that. From `CuttingBegins` to `PipesPrepared`.
    virtual Indices LaterPipesNear(int pipe) const = 0;
    /// `LaterPipesNear` is asked in pool order, and the turn of `pipe` has come, present or not.
    virtual void ExpectPipesFrom(int pipe) const = 0;
    /// The pool got `piece`, a piece of the entry `of`, at its end.
    virtual void PieceAdded(int piece, int of) = 0;
    /// The pipe was taken from the pool.
    virtual void PipeCut(int pipe) = 0;
    /// From here on the pipes of the pool stay as they are.
    virtual void PipesPrepared() = 0;
    /// Pipes with their start or end point in `box`. From `PipesPrepared` to `SegsBuilt`.
    virtual Indices PipesWithEndIn(const PlanBox& box) const = 0;
    /// Wells with their position in `box`.
    virtual Indices WellsIn(const PlanBox& box) const = 0;
    /// `WellsIn` is going to be asked for a place around `point`.
    virtual void ExpectWellsAt(const AcGePoint3d& point) const = 0;
    /// No well's radius is larger; 0.0 for none.
    virtual double LargestWellRadius() const = 0;
    /// The segments are complete.
    virtual void SegsBuilt() = 0;
    /// Nobody asks for segments any more.
    virtual void LoopsChecked() = 0;
    /// Segments with their search point in `box`. From `SegsBuilt` to `LoopsChecked`.
    virtual Indices SegsEndingIn(const PlanBox& box) const = 0;
};

/// A source over the pools of `search` as they stand. The search must outlive it.
std::unique_ptr<PressureCandidates> MakePressureCandidates(const PressureNetworkSearch& search,
                                                           CandidateMode mode);

} // namespace tkvlt
