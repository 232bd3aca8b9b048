#include "faults/LooseGroups.h"

#include "gravity/ChainFrame.h"
#include "gravity/MakeNode.h"
#include "Systems.h"

#include <algorithm>
#include <deque>
#include <fmt/format.h>
#include <unordered_set>

namespace pipenet {

namespace {

/// Goes through what is in no network, group by group.
class LooseGroups {
public:
    LooseGroups(GravityDrawing& drawing, SystemUnderCheck& under)
        : drawing_(drawing), search_(drawing.search()), under_(under) {
        for (const CheckedNetwork& network : under.report.networks) {
            for (const CheckedNode& node : network.nodes) {
                seen_.insert(node.entity);
                seen_.insert(node.merged.begin(), node.merged.end());
            }
            for (const CheckedRun& run : network.runs) {
                seen_.insert(run.pipes.begin(), run.pipes.end());
            }
        }
    }

    void report() {
        for (const CheckedEntity& entity : under_.context.entities) {
            if (entity.system == under_.system && seen_.count(entity.id) == 0) {
                reportGroup(entity);
            }
        }
    }

private:
    using Ids = std::vector<AcDbObjectId>;

    void reportGroup(const CheckedEntity& first) {
        Ids taken;
        const Ids group = gather(first.id, taken);
        bool isExplained = false;
        bool hasPipe = false;
        for (const AcDbObjectId& member : group) {
            isExplained = isExplained || under_.explained.count(member) != 0;
            hasPipe = hasPipe || drawing_.pipeIndex(member) >= 0;
        }
        if (isExplained || (first.kind == EntityKind::tank && isTankInUse(first.id))) {
            return;
        }
        const bool isLoneWell = first.kind == EntityKind::well && !hasPipe;
        Finding& finding =
            under_.add(isLoneWell ? "well-without-pipe" : "no-network", Severity::warning);
        finding.entities = group;
        finding.place = placeOf(first);
        finding.sentence = isLoneWell      ? loneWellSentence(group)
                           : taken.empty() ? groupSentence(first, group)
                                           : takenSentence(group, taken);
        finding.entities.insert(finding.entities.end(), taken.begin(), taken.end());
    }

    /// The entities in no network that hang together with the first one; what they hang together
    /// with beyond, once each, goes to `taken`.
    Ids gather(const AcDbObjectId& first, Ids& taken) {
        Ids group;
        std::deque<AcDbObjectId> front;
        std::unordered_set<AcDbObjectId> met;
        const auto enter = [&](const AcDbObjectId& id) {
            if (!met.insert(id).second) {
                return;
            }
            if (seen_.insert(id).second) {
                group.push_back(id);
                front.push_back(id);
            } else {
                taken.push_back(id);
            }
        };
        enter(first);
        while (!front.empty()) {
            const AcDbObjectId id = front.front();
            front.pop_front();
            for (const AcDbObjectId& next : neighboursOf(id)) {
                enter(next);
            }
        }
        return group;
    }

    Ids neighboursOf(const AcDbObjectId& id) const {
        if (const int pipe = drawing_.pipeIndex(id); pipe >= 0) {
            return neighboursOfPipe(pipe);
        }
        const int well = drawing_.wellIndex(id);
        return well >= 0 ? pipesAt(search_.wellPool[well]) : Ids();
    }

    Ids neighboursOfPipe(int pipe) const {
        Ids ids;
        for (const int outThroughStart : {1, 0}) {
            const tkvlt::PipeSite& site = search_.Site(pipe);
            const AcGePoint3d& end = outThroughStart != 0 ? site.startPoint : site.endPoint;
            if (const int well = search_.WellAt(end); well >= 0) {
                ids.push_back(search_.wellPool.IdOf(well));
            }
            for (const tkvlt::ChainBranch& way : search_.WaysOut(pipe, outThroughStart)) {
                ids.push_back(search_.pipePool.IdOf(way.pipe));
            }
        }
        return ids;
    }

    Ids pipesAt(const _Block& well) const {
        const Well node = tkvlt::MakeNode(well, tkvlt::kWellTarget);
        Ids ids;
        for (const int pipe : search_.PipesNear(node)) {
            int nearEndIsStart = 0;
            AcGePoint3d seed;
            if (search_.IsSearched(search_.Site(pipe)) &&
                search_.TouchesNode(search_.Site(pipe), node, nearEndIsStart, seed)) {
                ids.push_back(search_.pipePool.IdOf(pipe));
            }
        }
        return ids;
    }

    /// A pipe of another system may end in it, whose networks are searched in their turn.
    bool isTankInUse(const AcDbObjectId& id) const {
        const Well node = tkvlt::MakeNode(_Block(id, CString(), CString()), tkvlt::kTankTarget);
        const tkvlt::Indices pipes = search_.PipesNear(node);
        return std::any_of(pipes.begin(), pipes.end(), [&](int pipe) {
            int nearEndIsStart = 0;
            AcGePoint3d seed;
            return search_.TouchesNode(search_.Site(pipe), node, nearEndIsStart, seed);
        });
    }

    AcGePoint3d placeOf(const CheckedEntity& entity) const {
        if (const int pipe = drawing_.pipeIndex(entity.id); pipe >= 0) {
            return search_.Site(pipe).startPoint;
        }
        return _Block(entity.id, CString(), CString()).position;
    }

    static std::string loneWellSentence(const Ids& group) {
        return fmt::format(
            "no pipe of the system ends at {}; bring pipes up to it, or take it away",
            namesOf(group, kNamedMembers));
    }

    static std::string takenSentence(const Ids& group, const Ids& taken) {
        return fmt::format("{} in no network, for what it joins ({}) is taken by another run; take "
                           "it away if it is there twice, or join it elsewhere",
                           namesOf(group, kNamedMembers) + (group.size() == 1 ? " is" : " are"),
                           namesOf(taken, kNamedMembers));
    }

    static std::string groupSentence(const CheckedEntity& first, const Ids& group) {
        if (first.kind == EntityKind::tank) {
            return fmt::format("no pipe ends in {}, so it belongs to no network; bring pipes up to "
                               "it, or take it away",
                               namesOf(group, kNamedMembers));
        }
        return fmt::format("{} hang together but lead to no well or tank from which a network "
                           "could be searched; put a well at an end",
                           namesOf(group, kNamedMembers));
    }

    GravityDrawing& drawing_;
    const tkvlt::GravityNetworkSearch& search_;
    SystemUnderCheck& under_;
    std::unordered_set<AcDbObjectId> seen_;
};

} // namespace

void findWellsWithoutPipe(SystemUnderCheck& under) {
    std::unordered_set<AcDbObjectId> placed;
    for (const CheckedNode& node : under.pieces.nodes) {
        placed.insert(node.entity);
    }
    for (const CheckedEntity& entity : under.context.entities) {
        if (entity.kind != EntityKind::well || entity.system != under.system ||
            placed.count(entity.id) != 0 || under.explained.count(entity.id) != 0) {
            continue;
        }
        Finding& finding = under.add("well-without-pipe", Severity::warning);
        finding.entities = {entity.id};
        finding.place = _Block(entity.id, CString(), CString()).position;
        finding.sentence =
            fmt::format("{} lies on no pipe of the system; move it onto its pipe, or "
                        "take it away",
                        nameOf(entity.id));
    }
}

void findLooseGroups(GravityDrawing& drawing, SystemUnderCheck& under) {
    drawing.turnTo(under.named().name);
    LooseGroups(drawing, under).report();
}

} // namespace pipenet
