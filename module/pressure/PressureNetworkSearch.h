#pragma once

#include <memory>
#include <vector>

#include "pressure/CutHistory.h"
#include "pressure/PipePieces.h"
#include "pressure/PressureCandidates.h"
#include "pressure/PressureSeg.h"
#include "records/Block.h"
#include "records/Candidates.h"
#include "records/LargeVector.h"
#include "records/PlanSites.h"
#include "records/RecordPool.h"

namespace tkvlt {

/// Search points of two segments nearer than this, in drawing units, are one place.
inline constexpr double kOnePlace = 1.0;

/// A place where two pipes cross or touch and at least one of them is cut.
struct PipeCut {
    AcDbObjectId first;
    AcDbObjectId second;
    AcGePoint3d point;
};

/// The working context of one pressure search.
///
/// A search takes the pipes of the picked system and all wells of the drawing into pools, cuts the
/// pipes where they cross, and walks outward from the picked pipe: at each segment's far end the
/// pipes in reach hang on it as children, and a single child that continues the segment is merged
/// into it. All state of a search lives here, for the length of one call.
class PressureNetworkSearch {
public:
    /// @param segs, rootSeg the caller's; both must outlive the search.
    PressureNetworkSearch(CArray<PressureSeg, PressureSeg&>& segs, AcDbObjectId pickedId,
                          AcGePoint3d pickedPoint, int& rootSeg,
                          CandidateMode mode = CandidateModeFromEnvironment());

    // Each operation returns nonzero for success.

    /// Where the wells lay when they were collected, by pool index.
    const LargeVector<WellSite>& WellSites() const { return wellSites_; }

    /// The whole search; stops at the first step that fails, without undoing anything.
    int Run();
    int ReadSystemName();
    int CollectEntities();
    int FindPickedPipe();
    /// Cuts pipes at their crossings and, in any length mode but 0, moves pipe ends to well
    /// centres. To be called once; the pipes have other indices afterwards.
    int PreparePipes();
    int BuildSegments();
    /// Makes an entry of the pipe pool a root and takes it from the pool.
    /// @return the index of its segment, which stands behind those that are there.
    int PlaceRoot(int piece);
    int WalkFromSeg(int k);
    /// 0 when two segments end less than one drawing unit apart: the network closes on itself.
    int CheckNoLoops();
    /// The segments behind `k` that end in one place with it. From `CheckNoLoops` to `AttachWells`.
    Indices LaterSegsEndingAt(int k);
    /// Puts meters and valves onto the segments that they lie on.
    int AttachWells();
    /// The wells of the pool that lie on a segment, of whatever system.
    Indices WellsOn(const PressureSeg& seg) const;
    /// The first well of the system that holds `point`; -1 for none.
    int WellHolding(const AcGePoint3d& point, const CString& system) const;
    /// How near to `point` the end of a pipe must be to hang on a segment that ends there.
    double ReachFrom(const AcGePoint3d& point, const CString& system) const;
    /// The pipes of the pool that are in reach of a segment's end at `point`. From `PreparePipes`
    /// to `CheckNoLoops`.
    Indices PipesInReach(const AcGePoint3d& point, const CString& system) const;

    CArray<PressureSeg, PressureSeg&>& segs; ///< the caller's; appended to, never emptied
    int& rootSeg;
    AcDbObjectId pickedId;
    AcGePoint3d pickedPoint;
    PipePieces pipePool;         ///< pipes still to be placed in a segment
    RecordPool<_Block> wellPool; ///< wells of all systems; `AttachWells` consumes it
    RecordPool<_Block>
        outflowPool; ///< blocks whose temporary outflow flag is "0"; no step reads it
    CString systemName;
    double dwgScale;
    double breakDist;
    int lengthMode;
    std::vector<PipeCut>* cuts = nullptr; ///< gets every cut that `PreparePipes` makes; may be null
    /// Gets the first pipe of every run that a merge turns round. The run is put right then, so
    /// that the walk goes on at its far end. Null leaves it turned round.
    std::vector<AcDbObjectId>* turnedRuns = nullptr;

private:
    /// How far the cutting may go.
    struct CutLimits {
        CutHistory* history; ///< a cut that it holds is not made again; null for no such limit
        int rest;            ///< cuts that may still be made of what could be cut without end
        double straightRest; ///< cuts of straight pipes that may still be made
        double endTolerance; ///< at the begin of the search

        /// Without a history the cutting can start again, and then what is left may be cut less.
        bool IsExhausted() const { return straightRest < 0.0 || (history == nullptr && rest < 0); }
    };

    /// Whose attributes a segment is to carry.
    struct UnreadSeg {
        int pipe = -1;            ///< its index in the pool; -1 for none
        bool beginsAtEnd = false; ///< the begin point is the pipe's end point
    };

    void AddToPool(const AcDbObjectId& id);
    void AddPipe(const AcDbObjectId& id, ReadEntity& entity, const CString& system);
    bool ReadsLater() const { return candidateMode_ == CandidateMode::kIndexed; }
    const WellSite& SiteOfWell(int well) const {
        return wellSites_[static_cast<std::size_t>(well)];
    }

    void SplitCrossings();
    bool SplitAll(CutLimits limits);
    void SplitPipe(int pipe, CutLimits& limits);
    bool CouldBeCutWithoutEnd(int pipe, const CutLimits& limits) const;
    bool MayBeCut(int pipe, const CutLimits& limits) const;
    bool IsCutBy(int pipe, const AcGePoint3d& point, const CutLimits& limits) const;
    int CutPipe(int pipe, const AcGePoint3d& point, CutLimits& limits);

    void SnapEndsToWells();
    void SnapPipes(int first, int end);
    void SnapPipe(int index, Indices wells);
    Indices WellsAtEnds(const PipePiece& pipe) const;

    int FindRootPiece() const;
    void AdoptPipe(PressureSeg& seg, int pipe) const;
    void GrowFrom(int piece);
    void GrowAndReadLater(int piece);
    void TakeAttributes(PressureSeg& seg, int pipe);
    void ReadSegsAsDrawn(const std::vector<UnreadSeg>& unread);
    int ReadSegAttributes(PressureSeg& seg);
    void AdoptPipesInReach(int k);
    double PipeReach() const;
    double WellRadiusAt(const AcGePoint3d& point, const CString& system) const;
    int AdoptAndMerge(int k);
    int ContinuingChild(int k) const;
    void MergeChild(int k, int c);
    bool ChildrenStand() const;
    bool Continue(const PressureSeg& seg, const PressureSeg& child) const;

    std::vector<bool> KeepMetersAndValves();

    CandidateMode candidateMode_;
    bool childrenStand_ =
        true; // each entry of `children` leads to the segment that it was made for
    LargeVector<WellSite> wellSites_; // of the well pool, as collected
    SharedTraits traits_;
    std::unique_ptr<PressureCandidates> candidates_;
    std::vector<UnreadSeg>* unread_ = nullptr; // by segment, while attributes are left for later
};

} // namespace tkvlt
