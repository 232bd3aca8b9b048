#pragma once

#include <memory>
#include <optional>
#include <vector>

#include "frame/GravitySearchObject.h"
#include "gravity/CandidateSource.h"
#include "gravity/ChainFrame.h"
#include "records/Block.h"
#include "records/LargeVector.h"
#include "records/LaterReading.h"
#include "records/Pipe.h"
#include "records/PlanSites.h"
#include "records/RecordPool.h"

namespace tkvlt {

/// What an entity of a gravity network is, by the first name under which it carries a text.
enum EntityKind { kWellEntity = 0, kTankEntity = 1, kPipeEntity = 2 };

/// What ended a chain.
enum TargetKind { kTankTarget = 0, kWellTarget = 1 };

class ChainOutlook;
struct PipeEnds;

/// What one step of a walk did.
enum class WalkStep { kDescended, kScanEnded, kCycle };

/// A node that a walk stands at.
struct StandingNode {
    int well = -1; ///< its index in the result
    /// The pipes that may touch it, once they are known and if they are few: pipes only leave, so
    /// that none is missing here when the walk comes back.
    std::optional<Indices> pipes;
};

/// A chain that came back to what the search had reached before, for which the search fails.
struct ClosedChain {
    std::vector<int> pipes; ///< pool indices in trace order
    int node;               ///< the known node that it came to
    AcGePoint3d freeEnd;    ///< of the last pipe
};

/// What one trace of a single pipe found.
struct ChainOutcome {
    int reached;    ///< 1 when the trace ended at a target
    int targetKind; ///< a `TargetKind`
    int targetIndex;
    double length; ///< drawing units
};

/// What a walk left unread: the block references behind nodes, and the pipes that speak for
/// segments.
struct UnreadResult {
    LaterReading nodes; ///< by the well
    LaterReading segs;  ///< by the first pipe
};

/// The working context of one gravity search.
///
/// A search takes a snapshot of every network entity of the drawing into pools, places a root well,
/// and walks from well to well: each pipe that touches a well is followed, as a chain of pipes, to
/// the next well or tank, and the chain becomes a segment. All state of a search lives here, for
/// the length of one call.
///
/// `Run` is the whole search. The single-pipe path uses `CollectEntitiesOnly` and
/// `BuildSinglePipeSeg` on a context without a result, and lowering `RunAgain` behind that.
class GravityNetworkSearch {
public:
    /// @param object what is filled; not owned. Null on the single-pipe path.
    /// @param startId, endId, point are read through the whole search and must outlive it.
    GravityNetworkSearch(GravitySearchObject* object, AcDbObjectId& startId, AcDbObjectId& endId,
                         AcGePoint3d& point, CandidateMode mode = CandidateModeFromEnvironment());

    // The operations return 1 for done and 0 for not done, unless they say otherwise.

    /// Validates, collects, places the root, walks, traces the end path and orders the heights.
    /// When an exception passes, what has been added to the result may lack what is read of it
    /// last.
    int Run();
    /// Does the same from another entity, on all that has been collected. The drawing may have got
    /// other heights since, and nothing else. Before anything else is asked of the search then, the
    /// pools are to be restored.
    /// @param object an empty one; all four serve for this call alone.
    int RunAgain(GravitySearchObject* object, AcDbObjectId& startId, AcDbObjectId& endId,
                 AcGePoint3d& point);
    int ValidateEnds();
    int CollectEntities();
    /// Collects whatever there is; always 1.
    int CollectEntitiesOnly();
    /// Says that the drawing stays as it is while this search lives, heights apart. A search that
    /// looks entries up by an index then reads of most entities no more than where they lie. `Run`
    /// says so itself.
    void LetDrawingStay() { drawingStays_ = true; }
    /// Where the pipes and the wells lay when they were collected, by pool index.
    const LargeVector<PipeSite>& PipeSites() const { return pipeSites_; }
    const LargeVector<WellSite>& WellSites() const { return wellSites_; }
    const PipeSite& Site(int pipe) const { return pipeSites_[static_cast<std::size_t>(pipe)]; }
    const WellSite& SiteOfWell(int well) const {
        return wellSites_[static_cast<std::size_t>(well)];
    }
    /// Whether a pipe or a well, given by its site, is of the system that is searched.
    template<class PlanSite>
    bool IsSearched(const PlanSite& site) const {
        return site.system == SearchedSystem();
    }
    /// Leaves exactly one node in an empty result.
    int PlaceRootWell();
    /// Grows the tree out of node `well`, depth first. 1 when the scan of the pipes ran to its end.
    /// A cycle raises `abortFlag`, which the caller tests beside the result.
    int WalkFromWell(int well);
    /// Begins a walk: merges what overlaps the node `well` and puts it on `standing`, the nodes
    /// that the walk stands at. 0 when no well is left in the pool, and then nothing is put there.
    int StandAt(int well, std::vector<StandingNode>& standing);
    /// Follows one pipe out of the last node of `standing`, or leaves that node when no pipe is
    /// left there. `kCycle` once `abortFlag` is up and the walk is to end.
    WalkStep NextStep(std::vector<StandingNode>& standing);
    int TraceEndPath();
    /// Goes on with what is left in the pools: an empty result, no node known, no cycle met.
    void BeginAnother(GravitySearchObject* object);
    /// Makes the pools what they were when they had been collected, without any result.
    void RestorePools();
    /// Puts the lower elevation of each segment first.
    void OrderSegHeights();

    /// Begins a chain with `pipe`; always 1.
    int ResetChain(int pipe);
    /// Follows the chain out of `pipe` to a well or tank.
    ///
    /// @param outThroughStart nonzero when the chain leaves `pipe` through its start point.
    /// @param seed where the chain entered `pipe`; it serves only for measuring.
    /// @return 1 with the chain and its target in the context; 0 with marks, list and length as
    ///         they were. A chain that comes near a known node raises `abortFlag` and ends.
    int TraceChain(int pipe, int outThroughStart, AcGePoint3d seed);
    /// Measures `pipe` into the chain and puts `nextPipe` behind it, unless that is -1; always 1.
    int AddChainLink(int pipe, int nextPipe, AcGePoint3d from, AcGePoint3d to);
    /// Takes the last pipe of the chain off again; always 1.
    int UndoChainLink(int pipe, double savedLength);

    /// The place and direction of the label half way along the traced chain, counted from
    /// `reference`. 0, with both outputs untouched, when the pipes are too short to reach the
    /// middle.
    int PlaceAnnotation(AcGePoint3d& point, AcGeVector3d& vector, AcGePoint3d reference);
    /// Turns the traced chain into a node and a segment and takes its pipes from the pool.
    /// @return the index of the new node.
    int CommitSegment(int well);
    /// Fills a default-constructed `seg` with the stretch around `pipe`, taking nothing from the
    /// pools. 0: not collected, or no target on either side; 1: targets on both sides; 2: on one.
    int BuildSinglePipeSeg(GravitySeg& seg, const AcDbObjectId& pipe, CString systemName);

    /// 1 when the chain's target is not part of the result yet.
    int IsTargetNew();

    // What the rules say of one place. The pools must have been collected, and behind a whole
    // search have been restored.

    /// The first well of the system that holds the free end; -1 for none.
    int WellAt(const AcGePoint3d& freeEnd) const;
    /// The first tank, of whatever system, that holds the free end in plan; -1 for none.
    int TankAt(const AcGePoint3d& freeEnd) const;
    /// How a chain may go on from the free end of `pipe`, in the order in which it is tried.
    std::vector<ChainBranch> WaysOut(int pipe, int outThroughStart) const;
    /// The direction rule: whether a chain may go on from the one pipe to the other.
    bool MayContinue(const PipeSite& current, const PipeSite& next) const;
    /// Pipes that may touch the node.
    Indices PipesNear(const Well& node) const;
    /// Whether a walk leaves the node through the pipe, and with which of its ends there.
    bool TouchesNode(const PipeSite& pipe, const Well& node, int& nearEndIsStart,
                     AcGePoint3d& seed) const;
    /// From the collecting on, but not behind a whole search.
    const CandidateSource& Candidates() const { return *candidates_; }

    GravitySearchObject* result;
    AcDbObjectId* startId;
    AcDbObjectId* endId;
    AcGePoint3d* searchPoint;    ///< read only when a start pipe has a target on both sides
    int abortFlag;               ///< 1 once a cycle was met, until another begins
    RecordPool<_Pipe> pipePool;  ///< pipes not yet part of a segment
    RecordPool<_Block> wellPool; ///< wells of the drawing; one leaves only by merging
    RecordPool<_Block> tankPool; ///< tanks of the drawing
    CString systemName;          ///< the pipe system that is searched
    double snapDist;             ///< how near two pipe ends must be to join, drawing units
    double dwgScale;             ///< serves only to compute `snapDist`
    int startKind = kPipeEntity; ///< an `EntityKind`
    int endKind = kPipeEntity;   ///< an `EntityKind`; meaningful only if `endId` is not null
    int lengthMode; ///< how a chain's length is summed: 0 whole pipes, 1 parts, else none
    CArray<int, int> pipeMarks;   ///< one flag per pool index: 1 while the pipe is in the chain
    double chainLength = 0.0;     ///< drawing units
    CArray<int, int> chainPipes;  ///< pool indices of the chain, in trace order
    int targetKind = kTankTarget; ///< a `TargetKind`
    int targetIndex = -1;         ///< pool index of the target; -1 when the chain has none
    /// So many ways of one chain are taken back before the indexed search looks ahead.
    int takeBacksBeforeOutlook = 32;
    std::vector<ClosedChain>* closedChains = nullptr; ///< gets what raises `abortFlag`; may be null

private:
    friend class ChainOutlook;

    enum class ChainEnd { kOpen, kTarget, kKnownNode };
    enum class Trace { kNoTarget, kTarget, kGivenUp };

    void AddPipe(const AcDbObjectId& id, ReadEntity& entity, const CString& system);
    int ValidateEndEntity();
    int SearchCollected();
    void MakeRoomForEntities(std::size_t most);
    void MakeRoomForResult();
    int WalkFromRoot();
    int WalkAndReadLater();
    void GiveSpareRoomBack();

    int FindPipe(const AcDbObjectId& id) const;
    bool FindRoot(int& index, int& kind);
    bool FindRootBeyondPipe(int pipe, int& index, int& kind);

    int ArriveAtWell(int well);
    void MergeOverlappingWells(int well);
    void MergeWell(int well, int poolWell, double distance, double radius);
    bool IsNode(const AcDbObjectId& id) const;
    Indices PipesLeftAt(StandingNode& node) const;
    WalkStep FollowNextPipe(StandingNode& node, int& reached);

    Trace FollowChain(const ChainBranch& first, ChainOutlook* outlook, int takeBacks);
    void TakeChainBack();
    ChainFrame EnterPipe(const ChainBranch& branch) const;
    ChainEnd EndOfChain(const ChainFrame& level);
    bool ChainEndsAt(const AcGePoint3d& freeEnd) const;
    int KnownNodeNear(const AcGePoint3d& freeEnd) const;
    void NoteClosedChain(int node, const AcGePoint3d& freeEnd);
    int KnownNodeOfTarget() const;
    bool NextBranch(ChainFrame& level, ChainBranch& branch) const;
    void BeginNextStage(ChainFrame& level) const;
    bool CanFollow(const ChainFrame& level, int pipe) const;
    bool JoinsEndToEnd(const ChainFrame& level, int pipe, ChainBranch& branch) const;
    bool EntersSide(ChainFrame& level, int pipe, ChainBranch& branch) const;
    bool ContinuesOverlap(const ChainFrame& level, int pipe, ChainBranch& branch) const;
    bool LeavesCrossing(ChainFrame& level, int pipe, const AcGePoint3d& crossing,
                        ChainBranch& branch) const;

    int TakeChainPipes(GravitySeg& seg);
    double PipeLength(int pipe);
    double PipeLength(int pipe, const AcGePoint3d& from, const AcGePoint3d& to) const;
    void AnnotateOnPipe(int pipe, const PipeEnds& ends, double distance, AcGePoint3d& point,
                        AcGeVector3d& vector);
    const _Block& TargetBlock(int kind, int index) const;
    const AcDbObjectId& TargetId(int kind, int index) const;
    int AddNode(int kind, int index);
    int FindEndWell();
    int FinishOneSided(GravitySeg& seg, int pipe, const ChainOutcome& first,
                       const ChainOutcome& second);
    void FinishTwoSided(GravitySeg& seg, const ChainOutcome& first, const ChainOutcome& second);

    /// The number of the system that is searched. Asked of every candidate, so the text is compared
    /// only when it has been written since; a copy that shares its characters tells.
    int SearchedSystem() const {
        if (searchedSystem_ < 0 || searchedName_.GetString() != systemName.GetString()) {
            searchedSystem_ = -1; // should the next not come to an end
            searchedName_ = systemName;
            searchedSystem_ = traits_.systems.NumberOf(searchedName_);
        }
        return searchedSystem_;
    }
    bool ReadsLater() const { return drawingStays_ && candidateMode_ == CandidateMode::kIndexed; }

    CandidateMode candidateMode_;
    bool drawingStays_ = false;
    LargeVector<PipeSite> pipeSites_; // of the pipe pool, as collected
    LargeVector<WellSite> wellSites_; // of the well pool, as collected
    mutable SharedTraits traits_;     // asking for the number of a new name adds the name
    mutable CString searchedName_;
    mutable int searchedSystem_ = -1;             // the number of that name
    std::unique_ptr<CandidateSource> candidates_; // null once a walk needs it no longer
    std::vector<ChainFrame> levels_; // of the chain that is being traced; kept for its room
    int measuredPipe_ = -1;          // the pipe that was measured last, and its length
    double measuredLength_ = 0.0;
    UnreadResult* unread_ = nullptr; // gets what a walk leaves unread, while it may do so
};

/// Straight pipes may be one run when the angle between them is at most this, radians.
inline constexpr double kLargestTurn = 0.3141592653589793;

/// Fills the values of a segment whose points are known from one pipe of it.
void ReadSegmentValues(GravitySeg& seg, const AcDbObjectId& pipe);

/// True when a chain that comes to `freeEnd` ends at the well.
bool HoldsEnd(const WellSite& well, const AcGePoint3d& freeEnd);
/// How near a pipe end must be to a node's point for a walk to leave the node through it.
double TouchReach(const Well& node);

/// How near a pipe end must be to a well's position to end a chain there, drawing units.
double WellReach(const WellSite& well);

/// `radius`, or for a square well its reach to the corner.
double RadiusToCorner(const _Block& block, double radius);
double RadiusToCorner(const WellSite& well, double radius);

/// One millimetre of the real network, in drawing units.
double ExtentsMargin();

/// 1 when `point` lies in `extents` widened by one millimetre of the real network, bounds included.
int PointInExtents(AcGePoint3d point, AcDbExtents extents, int ignoreZ);

} // namespace tkvlt
