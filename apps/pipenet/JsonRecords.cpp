#include "JsonRecords.h"

#include "Systems.h"

namespace pipenet {

namespace {

using Points = CArray<AcGePoint3d, AcGePoint3d>;

void appendFittings(std::string& out, const AcDbObjectIdArray& ids, const Points& points) {
    appendItems(out, ids.length(), [&](INT_PTR i) {
        JsonObject(out).add("entity", ids[static_cast<int>(i)]).add("point", points[i]).close();
    });
}

} // namespace

void appendWell(std::string& out, const Well& well) {
    JsonObject(out)
        .add("entity", well.nodeEntity)
        .add("merged", well.mergedEntities)
        .add("isWell", well.isWell)
        .add("number", well.number)
        .add("systemName", well.systemName)
        .add("point", well.nodePoint)
        .add("radius", well.nodeRadius)
        .add("inSeg", well.inSeg)
        .add("outSegs", well.outSegs)
        .close();
}

void appendGravitySeg(std::string& out, const GravitySeg& seg) {
    JsonObject(out)
        .add("pipes", seg.pipeIds)
        .add("startWell", seg.startWell)
        .add("endWell", seg.endWell)
        .add("startEntity", seg.startEntity)
        .add("endEntity", seg.endEntity)
        .add("startPoint", seg.startPoint)
        .add("endPoint", seg.endPoint)
        .add("startElevation", seg.startElevation)
        .add("endElevation", seg.endElevation)
        .add("slope", seg.slope)
        .add("diameter", seg.diameter)
        .add("flowText", seg.flowText)
        .add("material", seg.material)
        .add("systemName", seg.systemName)
        .add("flowReversed", seg.flowReversed)
        .add("length", seg.length)
        .add("annotatePoint", seg.annotatePoint)
        .add("annotateVector", seg.annotateVector)
        .close();
}

void appendPressureSeg(std::string& out, PressureSeg& seg) {
    JsonObject object(out);
    object.add("pipes", seg.pipeIds)
        .add("orientationFlags", seg.orientationFlags)
        .add("startPoint", seg.startPoint)
        .add("endPoint", seg.endPoint)
        .add("beginPoint", seg.GetBeginPoint())
        .add("searchPoint", seg.GetSearchPoint())
        .add("parent", seg.parent)
        .add("children", seg.children)
        .add("reversed", seg.reversed);
    appendFittings(object.begin("valves"), seg.valveIds, seg.valvePoints);
    appendFittings(object.begin("meters"), seg.meterIds, seg.meterPoints);
    object.add("startElevation", seg.startElevation)
        .add("endElevation", seg.endElevation)
        .add("slope", seg.slope)
        .add("diameter", seg.diameter)
        .add("flowText", seg.flowText)
        .add("material", seg.material)
        .add("systemName", seg.systemName)
        .add("isArc", seg.isArc)
        .add("length", seg.GetLength())
        .add("annotatePoint", seg.GetAnnoatePoint())
        .add("annotateVector", seg.GetAnnnotateVector())
        .close();
}

void addSeg(JsonObject& object, Seg& seg) {
    object.add("kind", seg.kind);
    std::string& gravity = object.begin("gravity");
    if (seg.kind == kGravityFlow) {
        appendGravitySeg(gravity, seg.gravity);
    } else {
        gravity += "null";
    }
    std::string& pressure = object.begin("pressure");
    if (seg.kind == kPressureFlow) {
        appendPressureSeg(pressure, seg.pressure);
    } else {
        pressure += "null";
    }
}

} // namespace pipenet
