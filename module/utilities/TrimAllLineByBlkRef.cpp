#include "utilities/BlockTrimCurve.h"

#include "records/OwnedChain.h"
#include "utilities/SystemVariableAtZero.h"

namespace {

/// Lines of pipes carry this name; the texts of a pipe stand under another one.
constexpr auto kPipeLineApplication = L"管线系统";

struct Corners {
    ads_point upperLeft;
    ads_point lowerLeft;
    ads_point lowerRight;
    ads_point upperRight;
};

void ToUcs(double x, double y, double z, ads_point out) {
    const ads_point world = {x, y, z};
    acdbWcs2Ucs(world, out, false);
}

/// The corners at the height of the lower one; the upper right one keeps its own.
Corners CornersOf(const AcDbExtents& extents) {
    const AcGePoint3d low = extents.minPoint();
    const AcGePoint3d high = extents.maxPoint();
    Corners corners;
    ToUcs(low.x, high.y, low.z, corners.upperLeft);
    ToUcs(low.x, low.y, low.z, corners.lowerLeft);
    ToUcs(high.x, low.y, low.z, corners.lowerRight);
    ToUcs(high.x, high.y, high.z, corners.upperRight);
    return corners;
}

/// Selects what the fence around the extents meets.
int SelectPipeLines(const AcDbExtents& extents, ads_name set) {
    const Corners corners = CornersOf(extents);
    const tkvlt::OwnedChain fence(acutBuildList(
        RTPOINT, corners.upperLeft, RTPOINT, corners.lowerLeft, RTPOINT, corners.lowerRight,
        RTPOINT, corners.upperRight, RTPOINT, corners.upperLeft, 0));
    const tkvlt::OwnedChain filter(acutBuildList(-3, 1001, kPipeLineApplication, 0));
    return acedSSGet(L"F", fence.get(), nullptr, filter.get(), set);
}

void BreakEach(AcDbObjectId block, const ads_name set) {
    Adesk::Int32 length = 0;
    acedSSLength(set, &length);
    const tkvlt::SystemVariableAtZero echo(tkvlt::kCommandEcho);
    for (Adesk::Int32 i = 0; i < length; ++i) {
        ads_name name = {0, 0};
        AcDbObjectId curve;
        if (acedSSName(set, i, name) == RTNORM && acdbGetObjectId(curve, name) == Acad::eOk) {
            PelBlockTrimCurve(block, curve);
        }
    }
}

} // namespace

void PelTrimAllLineByBlkRef(ads_name block) {
    AcDbObjectId id;
    AcDbBlockReference* reference = nullptr;
    if (acdbGetObjectId(id, block) != Acad::eOk ||
        acdbOpenObject(reference, id, AcDb::kForRead) != Acad::eOk) {
        return;
    }
    AcDbExtents extents;
    reference->geomExtentsBestFit(extents, AcGeMatrix3d::kIdentity);
    reference->close();
    ads_name set = {0, 0};
    if (SelectPipeLines(extents, set) == RTNORM) {
        BreakEach(id, set);
        acedSSFree(set);
    }
}
