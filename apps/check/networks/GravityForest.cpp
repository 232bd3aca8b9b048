#include "networks/GravityForest.h"

#include "HandleText.h"
#include "Systems.h"

#include <algorithm>

namespace pipenet {

namespace {

CheckedNode nodeOfWell(const Well& well) {
    CheckedNode node;
    node.entity = well.nodeEntity;
    node.kind = well.isWell != 0 ? CheckedNodeKind::well : CheckedNodeKind::tank;
    node.number = utf8(well.number);
    node.place = well.nodePoint;
    node.radius = well.nodeRadius;
    for (int i = 0; i < well.mergedEntities.length(); ++i) {
        node.merged.push_back(well.mergedEntities.at(i));
    }
    return node;
}

/// A run with the values of a segment; its nodes stay open.
CheckedRun runOfSegment(const GravitySeg& seg) {
    CheckedRun run;
    run.start = seg.startPoint;
    run.end = seg.endPoint;
    run.flowReversed = seg.flowReversed != 0;
    run.diameter = seg.diameter;
    run.material = utf8(seg.material);
    run.length = metres(seg.length);
    run.startElevation = seg.startElevation;
    run.endElevation = seg.endElevation;
    return run;
}

} // namespace

GravityForest::GravityForest(GravityDrawing& drawing)
    : drawing_(drawing), search_(drawing.search()) {}

NetworkPieces GravityForest::grow(const std::vector<GravityStart>& starts) {
    search_.closedChains = &closed_;
    for (const GravityStart& start : starts) {
        if (nodeOf_.count(start.id) == 0) {
            growFrom(start);
        }
    }
    search_.closedChains = nullptr;
    search_.BeginAnother(nullptr);
    return std::move(pieces_);
}

void GravityForest::growFrom(const GravityStart& start) {
    Tree tree;
    search_.BeginAnother(&tree.found);
    closed_.clear();
    if (!placeRoot(start) || search_.StandAt(0, tree.standing) == 0) {
        return;
    }
    while (!tree.standing.empty()) {
        step(tree);
    }
    putBackMergedWells(tree);
    adopt(tree, start);
}

bool GravityForest::placeRoot(const GravityStart& start) {
    startId_ = start.id;
    search_.startId = &startId_;
    search_.startKind = start.isTank ? tkvlt::kTankEntity : tkvlt::kWellEntity;
    return search_.PlaceRootWell() != 0;
}

/// A scan in which a chain came back is not to be relied upon for what it looked at afterwards, so
/// the same node is looked at once more without that chain.
void GravityForest::step(Tree& tree) {
    const tkvlt::StandingNode node = tree.standing.back();
    const std::size_t depth = tree.standing.size();
    search_.NextStep(tree.standing);
    if (static_cast<std::size_t>(tree.found.segs.GetSize()) > tree.chains.size()) {
        std::vector<AcDbObjectId>& chain = tree.chains.emplace_back();
        for (int i = 0; i < static_cast<int>(search_.chainPipes.GetSize()); ++i) {
            chain.push_back(search_.pipePool[search_.chainPipes.GetAt(i)].id);
        }
    }
    if (closed_.empty()) {
        return;
    }
    for (const tkvlt::ClosedChain& chain : closed_) {
        setAside(chain, node.well, tree);
    }
    closed_.clear();
    search_.abortFlag = 0;
    if (tree.standing.size() < depth) {
        tree.standing.push_back(node);
    }
}

void GravityForest::setAside(const tkvlt::ClosedChain& chain, int well, Tree& tree) {
    const bool isLeft = std::all_of(chain.pipes.begin(), chain.pipes.end(),
                                    [&](int pipe) { return search_.pipePool.Has(pipe); });
    if (!isLeft) {
        return; // another chain has taken some of it, and comes back by itself
    }
    for (const int pipe : chain.pipes) {
        search_.pipePool.Remove(pipe);
    }
    const Well& node = tree.found.wells.ElementAt(chain.node);
    Closing closing;
    closing.run = static_cast<int>(tree.closingRuns.size());
    closing.node = chain.node;
    closing.measured = node.nodePoint.distanceTo(chain.freeEnd);
    closing.limit = search_.Candidates().LargestWellReach();
    closing.isNearMiss = node.isWell != 0 && closing.measured > tkvlt::TouchReach(node);
    tree.closingRuns.push_back(closingRun(chain, well, tree));
    if (closing.isNearMiss) {
        tree.closingRuns.back().to = -1;
        tree.closingRuns.back().end = chain.freeEnd;
    }
    tree.closings.push_back(closing);
}

CheckedRun GravityForest::closingRun(const tkvlt::ClosedChain& chain, int well,
                                     const Tree& tree) const {
    GravitySeg seg;
    seg.startPoint = tree.found.wells.GetAt(well).nodePoint;
    seg.endPoint = tree.found.wells.GetAt(chain.node).nodePoint;
    std::vector<AcDbObjectId> pipes;
    for (const int pipe : chain.pipes) {
        pipes.push_back(search_.pipePool[pipe].id);
        seg.length += search_.pipePool[pipe].GetLength();
    }
    const int first = *std::min_element(chain.pipes.begin(), chain.pipes.end());
    tkvlt::ReadSegmentValues(seg, search_.pipePool[first].id);
    CheckedRun run = runOfSegment(seg);
    run.pipes = std::move(pipes);
    run.from = well;
    run.to = chain.node;
    return run;
}

/// Each search finds the wells that its fellows merged, as it would with a collection of its own.
void GravityForest::putBackMergedWells(const Tree& tree) {
    for (INT_PTR i = 0; i < tree.found.wells.GetSize(); ++i) {
        const AcArray<AcDbObjectId>& merged = tree.found.wells.GetAt(i).mergedEntities;
        for (int m = 0; m < merged.length(); ++m) {
            search_.wellPool.PutBack(drawing_.wellIndex(merged.at(m)));
        }
    }
}

void GravityForest::adopt(Tree& tree, const GravityStart& start) {
    std::vector<int> nodes;
    for (INT_PTR i = 0; i < tree.found.wells.GetSize(); ++i) {
        nodes.push_back(nodeFor(tree.found.wells.GetAt(i)));
    }
    adoptRuns(tree, nodes);
    adoptClosings(tree, nodes);
    const bool leadsToEarlierRoot = std::any_of(
        nodes.begin(), nodes.end(), [&](int node) { return rootNodes_.count(node) != 0; });
    rootNodes_.insert(nodes.front());
    pieces_.roots.push_back({nodes.front(), rootEntity(start, tree), leadsToEarlierRoot});
}

/// The node that an earlier search made of the same wells, or a new one.
int GravityForest::nodeFor(const Well& well) {
    const CheckedNode node = nodeOfWell(well);
    std::vector<AcDbObjectId> entities{node.entity};
    entities.insert(entities.end(), node.merged.begin(), node.merged.end());
    int index = -1;
    for (const AcDbObjectId& entity : entities) {
        if (const auto known = nodeOf_.find(entity); index < 0 && known != nodeOf_.end()) {
            index = known->second;
        }
    }
    if (index < 0) {
        index = static_cast<int>(pieces_.nodes.size());
        pieces_.nodes.push_back(node);
    }
    CheckedNode& chosen = pieces_.nodes[static_cast<std::size_t>(index)];
    for (const AcDbObjectId& entity : entities) {
        const bool isNew = nodeOf_.emplace(entity, index).second;
        const bool isListed =
            entity == chosen.entity ||
            std::find(chosen.merged.begin(), chosen.merged.end(), entity) != chosen.merged.end();
        if (isNew && !isListed) {
            chosen.merged.push_back(entity);
        }
    }
    return index;
}

void GravityForest::adoptRuns(Tree& tree, const std::vector<int>& nodes) {
    for (std::size_t i = 0; i < tree.chains.size(); ++i) {
        const GravitySeg& seg = tree.found.segs.GetAt(static_cast<INT_PTR>(i));
        CheckedRun run = runOfSegment(seg);
        run.pipes = std::move(tree.chains[i]);
        run.from = nodes[static_cast<std::size_t>(seg.startWell)];
        run.to = nodes[static_cast<std::size_t>(seg.endWell)];
        pieces_.runs.push_back(std::move(run));
    }
}

void GravityForest::adoptClosings(const Tree& tree, const std::vector<int>& nodes) {
    const int firstRun = static_cast<int>(pieces_.runs.size());
    for (CheckedRun run : tree.closingRuns) {
        run.from = nodes[static_cast<std::size_t>(run.from)];
        run.to = run.to < 0 ? -1 : nodes[static_cast<std::size_t>(run.to)];
        pieces_.runs.push_back(std::move(run));
    }
    for (Closing closing : tree.closings) {
        closing.run += firstRun;
        closing.node = nodes[static_cast<std::size_t>(closing.node)];
        pieces_.closings.push_back(closing);
    }
}

/// A tank of another system cannot be asked for this one; its first pipe can.
AcDbObjectId GravityForest::rootEntity(const GravityStart& start, const Tree& tree) const {
    if (!start.isForeign || tree.chains.empty()) {
        return start.id;
    }
    const CheckedRun& first =
        pieces_.runs[pieces_.runs.size() - tree.chains.size() - tree.closingRuns.size()];
    return first.pipes.front();
}

} // namespace pipenet
