// Makes the piece of the picked pipe that lies nearest the pick the root segment and starts the
// walk.

#include <vector>

#include "pressure/PressureNetworkSearch.h"
#include "records/FetchAhead.h"
#include "records/LaterReading.h"
#include "records/NotedThere.h"
#include "records/PipeTexts.h"
#include "records/XdataKeys.h"

namespace tkvlt {

namespace {

double DistanceToCurve(const PipeCurve& curve, const AcGePoint3d& point) {
    return curve.arc != nullptr ? curve.arc->distanceTo(point) : curve.line.distanceTo(point);
}

/// Lets an array of segments grow by large steps while this lives.
///
/// Growing by its own small steps, it would move from one gap of the memory to the next larger one
/// and leave them all behind, for among its steps the segments' own lists are laid out.
class LargeSteps {
public:
    /// @param pipes so many segments there may come to be.
    LargeSteps(CArray<PressureSeg, PressureSeg&>& segs, int pipes) : segs_(segs) {
        constexpr int steps = 4;
        segs_.SetSize(segs_.GetSize(), pipes / steps);
    }
    ~LargeSteps() { segs_.SetSize(segs_.GetSize(), 0); }
    LargeSteps(const LargeSteps&) = delete;
    LargeSteps& operator=(const LargeSteps&) = delete;

private:
    CArray<PressureSeg, PressureSeg&>& segs_;
};

/// The elevations follow the walk and not the water: the one at the entity's end nearer to the
/// begin point is the segment's start. A piece of a cut pipe has those of the whole entity.
void WriteAttributes(PressureSeg& seg, const PipeTexts& pipe, const AcGePoint3d& begin) {
    const bool beginsAtStart = pipe.endPoint.distanceTo(begin) > pipe.startPoint.distanceTo(begin);
    seg.flowText = pipe.flow;
    seg.material = pipe.material;
    seg.diameter = IntegerPrefix(pipe.diameter);
    seg.slope = NumberPrefix(pipe.slope);
    seg.endElevation = NumberPrefix(beginsAtStart ? pipe.endElevation : pipe.startElevation);
    seg.startElevation = NumberPrefix(beginsAtStart ? pipe.startElevation : pipe.endElevation);
}

} // namespace

int PressureNetworkSearch::BuildSegments() {
    const int piece = FindRootPiece();
    if (piece < 0) {
        return 0;
    }
    const LargeSteps steps(segs, pipePool.Size());
    if (ReadsLater()) {
        GrowAndReadLater(piece);
    } else {
        GrowFrom(piece);
    }
    segs.FreeExtra();
    return 1;
}

void PressureNetworkSearch::GrowFrom(int piece) {
    childrenStand_ = ChildrenStand(); // of an earlier search, when there are any
    PlaceRoot(piece);
    rootSeg = 0;
    WalkFromSeg(0);
}

/// No rule of a walk asks for what is read here behind it, also where a bad index ends the walk.
/// When another exception does, what was placed lacks it.
void PressureNetworkSearch::GrowAndReadLater(int piece) {
    std::vector<UnreadSeg> unread(static_cast<std::size_t>(segs.GetSize()));
    try {
        const NotedThere noting(unread_, unread);
        GrowFrom(piece);
    } catch (const CInvalidArgException&) {
        ReadSegsAsDrawn(unread);
        throw;
    }
    ReadSegsAsDrawn(unread);
}

int PressureNetworkSearch::PlaceRoot(int piece) {
    PressureSeg root;
    AdoptPipe(root, piece);
    const bool startIsNearer =
        pickedPoint.distanceTo(root.endPoint) > pickedPoint.distanceTo(root.startPoint);
    root.reversed = startIsNearer ? 0 : 1;
    TakeAttributes(root, piece);
    pipePool.Remove(piece);
    return static_cast<int>(segs.Add(root));
}

/// The piece of the picked pipe nearest to the pick; of equally near ones the first in the pool.
int PressureNetworkSearch::FindRootPiece() const {
    double best = 1e24;
    int index = -1;
    for (int i = 0; i < pipePool.Size(); ++i) {
        if (!pipePool.Has(i) || pipePool.IdOf(i) != pickedId) {
            continue;
        }
        const double distance = DistanceToCurve(pipePool.CurveOf(i), pickedPoint);
        if (distance < best) {
            best = distance;
            index = i;
        }
    }
    return index;
}

void PressureNetworkSearch::AdoptPipe(PressureSeg& seg, int pipe) const {
    const PipePiece& adopted = pipePool.At(pipe);
    seg.orientationFlags.Add(adopted.orientationFlag);
    seg.pipeIds.setPhysicalLength(1); // most segments keep to one pipe
    seg.pipeIds.append(pipePool.IdOf(pipe));
    seg.startPoint = adopted.startPoint;
    seg.endPoint = adopted.endPoint;
    seg.isArc = adopted.isArc;
    if (adopted.isArc != 0) {
        seg.arc = pipePool.ArcOf(pipe);
        seg.line = pipePool[pipe].line;
    } else {
        seg.line = adopted.Chord();
    }
}

/// Attributes that are left for later are noted for the segment behind those that have theirs.
void PressureNetworkSearch::TakeAttributes(PressureSeg& seg, int pipe) {
    if (unread_ == nullptr) {
        ReadSegAttributes(seg);
        return;
    }
    seg.systemName = systemName;
    unread_->push_back({pipe, seg.reversed != 0});
}

int PressureNetworkSearch::ReadSegAttributes(PressureSeg& seg) {
    if (seg.pipeIds.isEmpty()) {
        return 1;
    }
    PipeTexts known;
    known.flow = seg.flowText;
    known.material = seg.material;
    seg.systemName = systemName;
    WriteAttributes(seg, ReadPipeTexts(seg.pipeIds.at(0), known), seg.GetBeginPoint());
    return 1;
}

/// In the order of the drawing, in which its memory is read far faster, and once for all pieces of
/// a pipe. A segment that was merged since has other ends than its first pipe.
void PressureNetworkSearch::ReadSegsAsDrawn(const std::vector<UnreadSeg>& unread) {
    const LargeVector<int> places = pipePool.PlacesAsDrawn();
    LaterReading later(pipePool.Size());
    for (std::size_t at = 0; at < unread.size(); ++at) {
        if (unread[at].pipe >= 0) {
            later.Add(places[static_cast<std::size_t>(unread[at].pipe)], static_cast<int>(at));
        }
    }
    AcDbObjectId readLast;
    PipeTexts texts;
    const auto fetchNote = [&](int at) { FetchAhead(unread[static_cast<std::size_t>(at)]); };
    const auto fetchPipeAndSeg = [&](int at) {
        const int pipe = unread[static_cast<std::size_t>(at)].pipe;
        FetchAhead(pipePool.IdOf(pipe));
        FetchAhead(pipePool.At(pipe));
        FetchAhead(segs.ElementAt(at).startElevation);
        FetchAhead(segs.ElementAt(at).systemName);
    };
    later.ReadInOrder(fetchNote, fetchPipeAndSeg, [&](int at) {
        const UnreadSeg& left = unread[static_cast<std::size_t>(at)];
        if (pipePool.IdOf(left.pipe) != readLast) {
            readLast = pipePool.IdOf(left.pipe);
            texts = ReadPipeTexts(readLast);
        }
        const PipePiece& pipe = pipePool.At(left.pipe);
        WriteAttributes(segs.ElementAt(at), texts,
                        left.beginsAtEnd ? pipe.endPoint : pipe.startPoint);
    });
}

} // namespace tkvlt
