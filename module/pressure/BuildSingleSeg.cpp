#include "pressure/BuildSingleSeg.h"

#include "records/ClosedAtEnd.h"
#include "records/Pipe.h"
#include "records/XdataKeys.h"

namespace tkvlt {

int BuildSingleSeg(PressureSeg& seg, AcDbObjectId id) {
    seg.pipeIds.append(id);
    const _Pipe pipe(id, CString());
    seg.isArc = pipe.isArc;
    seg.line = pipe.line;
    seg.arc = pipe.arc;
    seg.startPoint = pipe.startPoint;
    seg.endPoint = pipe.endPoint;
    seg.orientationFlags.Add(pipe.orientationFlag);

    CString diameter;
    CString slope;
    CString startElevation;
    CString endElevation;
    AcDbObject* object = nullptr;
    if (acdbOpenAcDbObject(object, id, AcDb::kForRead, AcDbCurve::desc(), false) == Acad::eOk) {
        const ClosedAtEnd closing(object);
        ReadXdata(object, xdata::kDiameter, diameter);
        ReadXdata(object, xdata::kFlow, seg.flowText);
        ReadXdata(object, xdata::kSlope, slope);
        ReadXdata(object, xdata::kStartElevation, startElevation);
        ReadXdata(object, xdata::kEndElevation, endElevation);
        ReadXdata(object, xdata::kMaterial, seg.material);
        ReadXdata(object, xdata::kPipeSystem, seg.systemName);
    }
    seg.diameter = IntegerPrefix(diameter);
    seg.slope = NumberPrefix(slope);
    const bool flowsStartToEnd = seg.flowText.Compare(xdata::kStartToEnd) == 0;
    seg.endElevation = NumberPrefix(flowsStartToEnd ? endElevation : startElevation);
    seg.startElevation = NumberPrefix(flowsStartToEnd ? startElevation : endElevation);
    return 1;
}

} // namespace tkvlt
