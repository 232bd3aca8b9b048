// Turns a traced chain into a node, a segment and the links between them.

#include "gravity/GravityNetworkSearch.h"
#include "records/PipeTexts.h"
#include "records/XdataKeys.h"

namespace tkvlt {

/// The flow sense follows from the flow text and the entity's orientation, the elevations from the
/// orientation alone.
void ReadSegmentValues(GravitySeg& seg, const AcDbObjectId& pipe) {
    const PipeTexts texts = ReadPipeTexts(pipe);
    seg.flowText = texts.flow;
    seg.material = texts.material;
    const bool flowsStartToEnd = texts.flow.Compare(xdata::kStartToEnd) == 0;
    const bool runsWithSegment =
        texts.endPoint.distanceTo(seg.startPoint) > texts.startPoint.distanceTo(seg.startPoint);
    seg.flowReversed = runsWithSegment == flowsStartToEnd ? 0 : 1;
    seg.diameter = IntegerPrefix(texts.diameter);
    seg.slope = NumberPrefix(texts.slope);
    seg.endElevation = NumberPrefix(runsWithSegment ? texts.endElevation : texts.startElevation);
    seg.startElevation = NumberPrefix(runsWithSegment ? texts.startElevation : texts.endElevation);
}

int GravityNetworkSearch::CommitSegment(int well) {
    const int reached = AddNode(targetKind, targetIndex);
    const Well& node = result->wells.ElementAt(reached);

    const int added = static_cast<int>(result->segs.GetSize());
    result->segs.SetSize(added + 1);
    GravitySeg& seg = result->segs.ElementAt(added);
    seg.startWell = well;
    seg.endWell = reached;
    seg.startEntity = result->wells.ElementAt(well).nodeEntity;
    seg.endEntity = node.nodeEntity;
    seg.startPoint = result->wells.ElementAt(well).nodePoint;
    seg.endPoint = node.nodePoint;
    seg.length = chainLength;
    // Before the pipes leave the pool, for the label is placed on them.
    PlaceAnnotation(seg.annotatePoint, seg.annotateVector, seg.startPoint);
    const int speaker = TakeChainPipes(seg);
    if (!seg.pipeIds.isEmpty()) {
        seg.systemName = systemName;
        if (unread_ != nullptr) {
            unread_->segs.Add(speaker, added);
        } else {
            ReadSegmentValues(seg, seg.pipeIds.at(0));
        }
    }
    result->wells.ElementAt(well).outSegs.Add(added);
    result->wells.ElementAt(reached).inSeg = added;
    return reached;
}

/// The ids stand in pool order, whatever the order of the chain, in which no pipe stands twice.
/// @return the pool index of the first; -1 for none.
int GravityNetworkSearch::TakeChainPipes(GravitySeg& seg) {
    Indices taken;
    for (int i = 0; i < static_cast<int>(chainPipes.GetSize()); ++i) {
        taken.push_back(chainPipes.GetAt(i));
    }
    taken.SortUnique();
    // Exactly so many, for a network has as many of these lists as segments.
    seg.pipeIds.setPhysicalLength(static_cast<int>(taken.size()));
    for (const int pipe : taken) {
        seg.pipeIds.append(Site(pipe).id);
        pipePool.Remove(pipe);
    }
    return taken.empty() ? -1 : taken[0];
}

} // namespace tkvlt
