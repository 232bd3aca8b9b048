#include "services/GetSingleSeg.h"

#include "frame/FlowKind.h"
#include "pressure/BuildSingleSeg.h"
#include "records/XdataKeys.h"
#include "services/SingleSeg.h"

int tkvlt::FindSingleSeg(Seg& seg, const AcDbObjectId& pipe,
                         std::optional<SinglePipeSearch>& search) {
    const CString systemName = XdataText(pipe, xdata::kPipeSystem);
    switch (PelGetDirectionSytle(systemName)) {
    case 1:
        seg.kind = 1;
        return search.emplace().Build(seg.gravity, pipe, systemName);
    case 0:
        seg.kind = 0;
        return BuildSingleSeg(seg.pressure, pipe);
    default:
        return 0;
    }
}

int GetSingleSeg(Seg& seg, const AcDbObjectId& pipe) {
    std::optional<tkvlt::SinglePipeSearch> search;
    return tkvlt::FindSingleSeg(seg, pipe, search);
}
