#include "faults/NetworkFindings.h"

#include "Systems.h"

#include <fmt/format.h>
#include <unordered_set>

namespace pipenet {

namespace {

const CheckedNode& nodeAt(const SystemUnderCheck& under, int node) {
    return under.pieces.nodes[static_cast<std::size_t>(node)];
}

/// "well 1F" or, for a mere joint, where it is.
std::string placeName(const CheckedNode& node) {
    return node.entity.isNull()
               ? fmt::format("the joint at {:.6g}, {:.6g}", node.place.x, node.place.y)
               : nameOf(node.entity);
}

int networkOfRun(const SystemUnderCheck& under, int run) {
    const int from = under.pieces.runs[static_cast<std::size_t>(run)].from;
    return under.networkOfNode[static_cast<std::size_t>(from)];
}

std::string ringSentence(const SystemUnderCheck& under, const Closing& closing,
                         const Finding& finding) {
    const std::string back = placeName(nodeAt(under, closing.node));
    const std::string members = namesOf(finding.entities, kNamedMembers);
    if (closing.isUnnoticed) {
        return fmt::format("the network closes on itself: {} lead back to {}; open the ring, for a "
                           "search finds a tree and refuses it from elsewhere",
                           members, back);
    }
    return fmt::format(
        "the network closes on itself: {} lead back to {}, and the search refuses it "
        "as a whole; open the ring there, or take a doubled pipe away",
        members, back);
}

std::string nearMissSentence(const SystemUnderCheck& under, const Closing& closing) {
    const std::vector<AcDbObjectId>& pipes =
        under.pieces.runs[static_cast<std::size_t>(closing.run)].pipes;
    return fmt::format("{} ends {:.3g} m from {}, which the search has reached already, and nearer "
                       "than {:.3g} m it takes that for a ring and refuses the network; move the "
                       "end away, or join it properly",
                       nameOf(pipes.back()), metres(closing.measured),
                       placeName(nodeAt(under, closing.node)), metres(closing.limit));
}

void addCycle(SystemUnderCheck& under, const std::vector<std::vector<int>>& runsAtNode,
              const Closing& closing) {
    const CheckedRun& run = under.pieces.runs[static_cast<std::size_t>(closing.run)];
    Finding& finding = under.add("cycle", Severity::error);
    finding.network = networkOfRun(under, closing.run);
    if (closing.isNearMiss) {
        finding.entities.assign(run.pipes.rbegin(), run.pipes.rend());
        if (const AcDbObjectId& node = nodeAt(under, closing.node).entity; !node.isNull()) {
            finding.entities.push_back(node);
        }
        finding.place = run.end;
        finding.measured = metres(closing.measured);
        finding.limit = metres(closing.limit);
        finding.unit = "m";
        finding.sentence = nearMissSentence(under, closing);
        return;
    }
    finding.severity = closing.isUnnoticed ? Severity::warning : Severity::error;
    finding.entities = ringOf(under.pieces, runsAtNode, closing);
    finding.place = nodeAt(under, closing.node).place;
    finding.sentence = ringSentence(under, closing, finding);
}

} // namespace

void findCycles(SystemUnderCheck& under) {
    if (under.pieces.closings.empty()) {
        return;
    }
    const std::vector<std::vector<int>> runsAtNode = runsAtNodes(under.pieces);
    for (const Closing& closing : under.pieces.closings) {
        addCycle(under, runsAtNode, closing);
    }
}

std::string turnedRunSentence(const std::vector<AcDbObjectId>& pipes, const AcDbObjectId& root) {
    return fmt::format(
        "{} is drawn against the way in which a search from {} comes to it, and goes "
        "straight on in {}: the search turns the run round and does not find what "
        "lies behind; draw the pipe the other way, or begin at another end of the "
        "network",
        nameOf(pipes[0]), nameOf(root), nameOf(pipes[1]));
}

void findTurnedRuns(SystemUnderCheck& under, const std::vector<AcDbObjectId>& firstPipes) {
    const std::unordered_set<AcDbObjectId> turned(firstPipes.begin(), firstPipes.end());
    std::unordered_set<int> inRings;
    for (const Closing& closing : under.pieces.closings) {
        inRings.insert(networkOfRun(under, closing.run));
    }
    for (std::size_t i = 0; i < under.pieces.runs.size() && !turned.empty(); ++i) {
        const CheckedRun& run = under.pieces.runs[i];
        if (run.pipes.size() < 2 || turned.count(run.pipes.front()) == 0) {
            continue;
        }
        const int network = networkOfRun(under, static_cast<int>(i));
        // In a network with a ring the walk comes from sides that it will not come from later.
        Finding& finding =
            under.add("turned-run", inRings.count(network) != 0 ? Severity::note : Severity::error);
        finding.network = network;
        finding.entities = run.pipes;
        finding.place = run.start;
        finding.sentence = turnedRunSentence(
            run.pipes, under.report.networks[static_cast<std::size_t>(network)].root);
    }
}

void findMergedWells(SystemUnderCheck& under) {
    for (std::size_t i = 0; i < under.pieces.nodes.size(); ++i) {
        const CheckedNode& node = under.pieces.nodes[i];
        if (node.merged.empty() || under.networkOfNode[i] < 0) {
            continue;
        }
        Finding& finding = under.add("merged-wells", Severity::note);
        finding.network = under.networkOfNode[i];
        finding.entities.push_back(node.entity);
        finding.entities.insert(finding.entities.end(), node.merged.begin(), node.merged.end());
        finding.place = node.place;
        finding.sentence = fmt::format(
            "{} and {} overlap and become one node of the network; move them apart if they are to "
            "be two",
            nameOf(node.entity), namesOf(node.merged, kNamedMembers));
    }
}

} // namespace pipenet
