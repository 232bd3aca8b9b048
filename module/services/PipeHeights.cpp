#include "services/PipeHeights.h"

#include "records/XdataKeys.h"

namespace tkvlt {

CString HeightText(double height) {
    CString text;
    text.Format(L"%g", height);
    return text;
}

double DiameterInMetres(const GravitySeg& seg) {
    return seg.diameter / 1000.0;
}

void WriteHeights(const AcDbObjectId& pipe, const CString& startText, const CString& endText) {
    SetXdata(pipe, xdata::kStartElevation, startText);
    SetXdata(pipe, xdata::kEndElevation, endText);
}

} // namespace tkvlt
