#include "networks/GravityStarts.h"

#include "gravity/MakeNode.h"
#include "records/XdataKeys.h"

#include <algorithm>
#include <tuple>

namespace pipenet {

namespace {

enum Order { kAllArrives, kTank, kWell, kLast };

/// What touches a node of the searched system.
struct Touching {
    int pipes = 0;
    int arriving = 0; ///< by the flow texts
    int leaving = 0;
};

void tellFlow(const AcDbObjectId& pipe, bool startIsNear, Touching& touching) {
    const CString flow = XdataText(pipe, xdata::kFlow);
    const bool startToEnd = flow.Compare(xdata::kStartToEnd) == 0;
    if (startToEnd || flow.Compare(xdata::kEndToStart) == 0) {
        ++(startToEnd == startIsNear ? touching.leaving : touching.arriving);
    }
}

Touching touchingOf(const tkvlt::GravityNetworkSearch& search, const Well& node) {
    Touching touching;
    for (const int i : search.PipesNear(node)) {
        int nearEndIsStart = 0;
        AcGePoint3d seed;
        if (search.IsSearched(search.Site(i)) &&
            search.TouchesNode(search.Site(i), node, nearEndIsStart, seed)) {
            ++touching.pipes;
            tellFlow(search.pipePool.IdOf(i), nearEndIsStart != 0, touching);
        }
    }
    return touching;
}

Order orderOf(const GravityStart& start, const Touching& touching) {
    if (start.isForeign || touching.pipes == 0) {
        return kLast;
    }
    if (touching.arriving > 0 && touching.leaving == 0) {
        return kAllArrives;
    }
    return start.isTank ? kTank : kWell;
}

GravityStart startOf(const tkvlt::GravityNetworkSearch& search, const _Block& block, bool isTank) {
    GravityStart start;
    start.id = block.id;
    start.isTank = isTank;
    start.isForeign =
        isTank && XdataText(block.id, xdata::kTankSystem).Compare(search.systemName) != 0;
    const Well node = tkvlt::MakeNode(block, isTank ? tkvlt::kTankTarget : tkvlt::kWellTarget);
    const Touching touching = touchingOf(search, node);
    start.pipes = touching.pipes;
    start.order = orderOf(start, touching);
    return start;
}

} // namespace

std::vector<GravityStart> gravityStarts(GravityDrawing& drawing) {
    const tkvlt::GravityNetworkSearch& search = drawing.search();
    std::vector<GravityStart> starts;
    for (int i = 0; i < search.tankPool.Size(); ++i) {
        const GravityStart start = startOf(search, search.tankPool[i], true);
        if (start.pipes > 0) {
            starts.push_back(start);
        }
    }
    for (const int i : drawing.wellsOf(search.systemName)) {
        starts.push_back(startOf(search, search.wellPool[i], false));
    }
    std::stable_sort(starts.begin(), starts.end(), [](const auto& a, const auto& b) {
        return std::tie(a.order, a.pipes) < std::tie(b.order, b.pipes);
    });
    return starts;
}

} // namespace pipenet
