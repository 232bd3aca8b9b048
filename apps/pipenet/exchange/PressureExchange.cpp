// A run of the search is taken apart first into parts of pipes, in walking order; each part becomes
// a link, each end of one a node. Nodes are shared where runs hang on each other.
#include "exchange/NodeSites.h"
#include "exchange/OwnTexts.h"
#include "exchange/PipeRun.h"
#include "exchange/ReadNetwork.h"
#include "HandleText.h"
#include "records/XdataKeys.h"
#include "RunParents.h"
#include "Systems.h"

#include <algorithm>
#include <limits>

namespace pipenet {

namespace {

/// Where a merged run begins and ends in walking order. Of a run that was turned about this is not
/// its begin point and its search point.
struct WalkedEnds {
    PlanPoint first;
    PlanPoint last;
};

WalkedEnds walkedEnds(PressureSeg& seg) {
    if (seg.pipeIds.length() > 1) {
        return {inPlan(seg.startPoint), inPlan(seg.endPoint)};
    }
    return {inPlan(seg.GetBeginPoint()), inPlan(seg.GetSearchPoint())};
}

double nearestEnd(const PipePiece& piece, const PlanPoint& place) {
    return std::min(distance(piece.points.front(), place), distance(piece.points.back(), place));
}

/// The pipes of a run in walking order. A whole pipe is passed from end to end; a piece that was
/// cut off begins where the way stands, and ends at the run's end or at the next pipe.
std::vector<PiecePart> partsOf(PressureSeg& seg) {
    const std::vector<PipePiece> pieces = pipePieces(seg.pipeIds);
    const WalkedEnds ends = walkedEnds(seg);
    std::vector<PiecePart> parts;
    PlanPoint place = ends.first;
    for (std::size_t i = 0; i < pieces.size(); ++i) {
        PiecePart part{pieces[i]};
        const PlanPoint& start = part.piece.points.front();
        const PlanPoint& end = part.piece.points.back();
        const bool isLast = i + 1 == pieces.size();
        if (seg.orientationFlags[static_cast<INT_PTR>(i)] != 0) {
            part.from = distance(start, place) <= distance(end, place) ? 0.0 : 1.0;
            part.to = 1.0 - part.from;
        } else {
            part.from = nearestShare(part.piece, place).share;
            part.to = isLast ? nearestShare(part.piece, ends.last).share
                      : nearestEnd(pieces[i + 1], start) < nearestEnd(pieces[i + 1], end) ? 0.0
                                                                                          : 1.0;
        }
        place = part.points().back();
        parts.push_back(std::move(part));
    }
    return parts;
}

ExchangeDevice deviceOf(const AcDbObjectId& pipe) {
    const CString text = XdataText(pipe, own_texts::kDevice);
    return text == own_texts::kValve  ? ExchangeDevice::valve
           : text == own_texts::kPump ? ExchangeDevice::pump
                                      : ExchangeDevice::none;
}

class PressureReader {
public:
    PressureReader(PressureSearchObject& found, const Drawing& drawing)
        : found_(found), parents_(runParents(found.segs)) {
        network_.metresOfUnit = metres(1.0);
        const PressureSeg& root = found.segs[found.rootSeg];
        network_.system = utf8(root.systemName);
        sites_ = NodeSites(drawing, root.systemName);
    }

    ExchangeNetwork run() {
        for (INT_PTR i = 0; i < found_.segs.GetSize(); ++i) {
            readRun(found_.segs[i], i);
        }
        collectPipeHeights(network_);
        return std::move(network_);
    }

private:
    void readRun(PressureSeg& seg, INT_PTR index);
    void addLink(const PiecePart& part, std::size_t from, std::size_t to);
    std::size_t addNode(const PlanPoint& at);
    void addFittings(const PressureSeg& seg, std::size_t firstLink);

    PressureSearchObject& found_;
    std::vector<int> parents_; ///< of each run
    NodeSites sites_;
    ExchangeNetwork network_;
    std::vector<std::size_t> hooks_; ///< of each run the node that further runs hang on
};

std::size_t PressureReader::addNode(const PlanPoint& at) {
    network_.nodes.push_back(sites_.nodeAt(at, network_.metresOfUnit));
    return network_.nodes.size() - 1;
}

void PressureReader::readRun(PressureSeg& seg, INT_PTR index) {
    const std::vector<PiecePart> parts = partsOf(seg);
    const std::size_t firstLink = network_.links.size();
    const bool isRoot = index == found_.rootSeg;
    const std::size_t first =
        isRoot ? addNode(walkedEnds(seg).first)
               : hooks_[static_cast<std::size_t>(parents_[static_cast<std::size_t>(index)])];
    std::size_t place = first;
    for (std::size_t i = 0; i < parts.size(); ++i) {
        const bool isLast = i + 1 == parts.size();
        const std::size_t next = addNode(isLast ? walkedEnds(seg).last : parts[i].points().back());
        addLink(parts[i], place, next);
        place = next;
    }
    // A run that was turned about goes on, and is read from, at the other ends.
    const bool isTurned = seg.pipeIds.length() > 1 && seg.reversed != 0;
    hooks_.push_back(isTurned ? first : place);
    if (isRoot) {
        network_.root = isTurned ? place : first;
    }
    addFittings(seg, firstLink);
}

void PressureReader::addLink(const PiecePart& part, std::size_t from, std::size_t to) {
    const AcDbObjectId id = part.piece.id;
    ExchangeLink link;
    link.device = deviceOf(id);
    link.pipes = {id};
    link.number = utf8(XdataText(id, own_texts::kLinkName));
    link.from = from;
    link.to = to;
    link.path = part.points();
    const std::optional<double> given = givenLength(part.piece, network_.metresOfUnit);
    const double share = part.to < part.from ? part.from - part.to : part.to - part.from;
    link.lengthIsGiven = given.has_value();
    link.length = given ? *given * share : part.length() * network_.metresOfUnit;
    link.diameter = IntegerPrefix(XdataText(id, xdata::kDiameter));
    link.slope = NumberPrefix(XdataText(id, xdata::kSlope));
    link.material = utf8(XdataText(id, xdata::kMaterial));
    link.startElevation = part.startElevation();
    link.endElevation = part.endElevation();
    const bool alongPipe = part.from <= part.to;
    const bool startToEnd = XdataText(id, xdata::kFlow) == xdata::kStartToEnd;
    if (alongPipe != startToEnd) {
        std::swap(link.from, link.to);
        std::swap(link.startElevation, link.endElevation);
        std::reverse(link.path.begin(), link.path.end());
    }
    network_.links.push_back(std::move(link));
}

void PressureReader::addFittings(const PressureSeg& seg, std::size_t firstLink) {
    const auto add = [&](const AcDbObjectId& id, const AcGePoint3d& point, bool isValve) {
        ExchangeFitting fitting{isValve, id, utf8(XdataText(id, xdata::kWellNumber)), inPlan(point),
                                firstLink};
        double nearest = std::numeric_limits<double>::infinity();
        for (std::size_t i = firstLink; i < network_.links.size(); ++i) {
            PipePiece way;
            way.points = network_.links[i].path;
            const double here = nearestShare(way, fitting.at).distance;
            if (here < nearest) {
                nearest = here;
                fitting.link = i;
            }
        }
        network_.fittings.push_back(std::move(fitting));
    };
    for (int i = 0; i < seg.valveIds.length(); ++i) {
        add(seg.valveIds[i], seg.valvePoints[i], true);
    }
    for (int i = 0; i < seg.meterIds.length(); ++i) {
        add(seg.meterIds[i], seg.meterPoints[i], false);
    }
}

} // namespace

ExchangeNetwork readNetwork(PressureSearchObject& found, const Drawing& drawing) {
    return PressureReader(found, drawing).run();
}

} // namespace pipenet
