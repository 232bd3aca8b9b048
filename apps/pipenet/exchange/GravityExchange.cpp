#include "exchange/ReadNetwork.h"

#include "exchange/OwnTexts.h"
#include "exchange/PipeRun.h"
#include "HandleText.h"
#include "records/XdataKeys.h"
#include "Systems.h"

#include <algorithm>

namespace pipenet {

namespace {

ExchangeNode nodeOf(const Well& well, double metresOfUnit) {
    ExchangeNode node;
    node.entity = well.nodeEntity;
    node.at = {well.nodePoint.x, well.nodePoint.y};
    node.kind = well.isWell != 0 ? ExchangeNodeKind::well : ExchangeNodeKind::tank;
    node.number = utf8(well.number);
    readNodeTexts(node, metresOfUnit);
    return node;
}

/// The name that all pieces of a chain carry.
std::string commonName(const std::vector<PiecePart>& run) {
    const CString first = XdataText(run.front().piece.id, own_texts::kLinkName);
    const bool common = std::all_of(run.begin(), run.end(), [&first](const PiecePart& part) {
        return XdataText(part.piece.id, own_texts::kLinkName) == first;
    });
    return common ? utf8(first) : std::string();
}

/// Path and length of a chain, gaps between its pieces included.
void setPath(ExchangeLink& link, const std::vector<PiecePart>& run, double metresOfUnit) {
    double length = 0.0;
    for (const PiecePart& part : run) {
        const std::vector<PlanPoint> points = part.points();
        length += part.length();
        if (!link.path.empty()) {
            length += distance(link.path.back(), points.front());
        }
        link.path.insert(link.path.end(), points.begin(), points.end());
    }
    link.length = length * metresOfUnit;
    if (run.size() == 1) {
        if (const auto given = givenLength(run.front().piece, metresOfUnit)) {
            link.length = *given;
            link.lengthIsGiven = true;
        }
    }
}

void turn(ExchangeLink& link) {
    std::swap(link.from, link.to);
    std::swap(link.startElevation, link.endElevation);
    std::reverse(link.path.begin(), link.path.end());
    std::reverse(link.pipes.begin(), link.pipes.end());
}

ExchangeLink linkOf(const GravitySeg& seg, const ExchangeNetwork& network) {
    ExchangeLink link;
    link.from = static_cast<std::size_t>(seg.startWell);
    link.to = static_cast<std::size_t>(seg.endWell);
    link.diameter = seg.diameter;
    link.slope = seg.slope;
    link.material = utf8(seg.material);
    const std::vector<PiecePart> run =
        orderedRun(pipePieces(seg.pipeIds), network.nodes[link.from].at, network.nodes[link.to].at,
                   jointReach());
    for (const PiecePart& part : run) {
        link.pipes.push_back(part.piece.id);
    }
    link.number = commonName(run);
    setPath(link, run, network.metresOfUnit);
    // The record's own heights are those of any one piece, the lower first; these are the ends'.
    link.startElevation = run.front().startElevation();
    link.endElevation = run.back().endElevation();
    if (seg.flowReversed != 0) {
        turn(link);
    }
    return link;
}

} // namespace

ExchangeNetwork readNetwork(const GravitySearchObject& found) {
    ExchangeNetwork network;
    network.isGravity = true;
    network.metresOfUnit = metres(1.0);
    network.root = static_cast<std::size_t>(found.rootWell);
    for (INT_PTR i = 0; i < found.wells.GetSize(); ++i) {
        network.nodes.push_back(nodeOf(found.wells[i], network.metresOfUnit));
    }
    for (INT_PTR i = 0; i < found.segs.GetSize(); ++i) {
        network.system = utf8(found.segs[i].systemName);
        network.links.push_back(linkOf(found.segs[i], network));
    }
    collectPipeHeights(network);
    return network;
}

} // namespace pipenet
