#include "utilities/BlockTrimCurve.h"

namespace {

/// Where the block meets the extended curve; empty when either cannot be opened.
AcGePoint3dArray MeetingPoints(AcDbObjectId block, AcDbObjectId curve) {
    AcGePoint3dArray points;
    AcDbBlockReference* reference = nullptr;
    if (acdbOpenObject(reference, block, AcDb::kForRead) != Acad::eOk) {
        return points;
    }
    AcDbCurve* opened = nullptr;
    if (acdbOpenObject(opened, curve, AcDb::kForRead) != Acad::eOk) {
        reference->close();
        return points;
    }
    reference->intersectWith(opened, AcDb::kExtendArg, points);
    opened->close();
    reference->close();
    return points;
}

} // namespace

int PelBlockTrimCurve(AcDbObjectId block, AcDbObjectId curve) {
    const AcGePoint3dArray points = MeetingPoints(block, curve);
    if (points.length() != 2) {
        return 0;
    }
    ads_point first;
    ads_point second;
    acdbWcs2Ucs(asDblArray(points[0]), first, false);
    acdbWcs2Ucs(asDblArray(points[1]), second, false);
    ads_name name = {0, 0};
    acdbGetAdsName(name, curve);
    ads_name set = {0, 0};
    acedSSAdd(name, nullptr, set);
    acedCommand(RTSTR, L"break", RTPICKS, set, RTPOINT, first, RTPOINT, second, 0);
    acedSSFree(set);
    return 1;
}
