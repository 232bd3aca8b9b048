#include "services/GetSingleSeg.h"

#include "frame/FlowKind.h"
#include "pressure/BuildSingleSeg.h"
#include "records/XdataKeys.h"
#include "services/SinglePipeSearch.h"

int GetSingleSeg(Seg& seg, const AcDbObjectId& pipe) {
    const CString systemName = XdataText(pipe, xdata::kPipeSystem);
    switch (PelGetDirectionSytle(systemName)) {
    case 1:
        seg.kind = 1;
        return tkvlt::SinglePipeSearch().Build(seg.gravity, pipe, systemName);
    case 0:
        seg.kind = 0;
        return tkvlt::BuildSingleSeg(seg.pressure, pipe);
    default:
        return 0;
    }
}
