#include "JsonRecords.h"

#include "Systems.h"

namespace pipenet {

Json wellJson(const Well& well) {
    return {{"entity", idJson(well.nodeEntity)},
            {"merged", idsJson(well.mergedEntities)},
            {"isWell", well.isWell},
            {"number", textJson(well.number)},
            {"systemName", textJson(well.systemName)},
            {"point", pointJson(well.nodePoint)},
            {"radius", well.nodeRadius},
            {"inSeg", well.inSeg},
            {"outSegs", indicesJson(well.outSegs)}};
}

Json gravitySegJson(const GravitySeg& seg) {
    return {{"pipes", idsJson(seg.pipeIds)},
            {"startWell", seg.startWell},
            {"endWell", seg.endWell},
            {"startEntity", idJson(seg.startEntity)},
            {"endEntity", idJson(seg.endEntity)},
            {"startPoint", pointJson(seg.startPoint)},
            {"endPoint", pointJson(seg.endPoint)},
            {"startElevation", seg.startElevation},
            {"endElevation", seg.endElevation},
            {"slope", seg.slope},
            {"diameter", seg.diameter},
            {"flowText", textJson(seg.flowText)},
            {"material", textJson(seg.material)},
            {"systemName", textJson(seg.systemName)},
            {"flowReversed", seg.flowReversed},
            {"length", seg.length},
            {"annotatePoint", pointJson(seg.annotatePoint)},
            {"annotateVector", vectorJson(seg.annotateVector)}};
}

namespace {

Json fittingsJson(const AcDbObjectIdArray& ids, const CArray<AcGePoint3d, AcGePoint3d>& points) {
    Json fittings = Json::array();
    for (int i = 0; i < ids.length(); ++i) {
        fittings.push_back({{"entity", idJson(ids[i])}, {"point", pointJson(points[i])}});
    }
    return fittings;
}

} // namespace

Json pressureSegJson(PressureSeg& seg) {
    return {{"pipes", idsJson(seg.pipeIds)},
            {"orientationFlags", indicesJson(seg.orientationFlags)},
            {"startPoint", pointJson(seg.startPoint)},
            {"endPoint", pointJson(seg.endPoint)},
            {"beginPoint", pointJson(seg.GetBeginPoint())},
            {"searchPoint", pointJson(seg.GetSearchPoint())},
            {"parent", seg.parent},
            {"children", indicesJson(seg.children)},
            {"reversed", seg.reversed},
            {"valves", fittingsJson(seg.valveIds, seg.valvePoints)},
            {"meters", fittingsJson(seg.meterIds, seg.meterPoints)},
            {"startElevation", seg.startElevation},
            {"endElevation", seg.endElevation},
            {"slope", seg.slope},
            {"diameter", seg.diameter},
            {"flowText", textJson(seg.flowText)},
            {"material", textJson(seg.material)},
            {"systemName", textJson(seg.systemName)},
            {"isArc", seg.isArc},
            {"length", seg.GetLength()},
            {"annotatePoint", pointJson(seg.GetAnnoatePoint())},
            {"annotateVector", vectorJson(seg.GetAnnnotateVector())}};
}

Json segJson(Seg& seg) {
    const bool isGravity = seg.kind == kGravityFlow;
    const bool isPressure = seg.kind == kPressureFlow;
    return {{"kind", seg.kind},
            {"gravity", isGravity ? gravitySegJson(seg.gravity) : Json(nullptr)},
            {"pressure", isPressure ? pressureSegJson(seg.pressure) : Json(nullptr)}};
}

} // namespace pipenet
