#include "utilities/BlockTrimLine.h"

#include "utilities/EnterEntity.h"
#include "utilities/SystemVariableAtZero.h"

#include <cmath>
#include <memory>

namespace {

using tkvlt::SystemVariableAtZero;

/// The circle at which lines are cut.
std::unique_ptr<AcDbCircle> MakeCutter(const AcGePoint3d& center, double radius) {
    return std::make_unique<AcDbCircle>(center, AcGeVector3d(0.0, 0.0, 1.0), radius);
}

/// The rim of a block: about its position, as wide as its X scale factor whatever its sign.
Acad::ErrorStatus ReadRim(AcDbObjectId block, AcGePoint3d& center, double& radius) {
    AcDbObject* object = nullptr;
    const Acad::ErrorStatus status =
        acdbOpenAcDbObject(object, block, AcDb::kForRead, AcDbBlockReference::desc(), false);
    if (status != Acad::eOk) {
        return status;
    }
    const auto* reference = static_cast<AcDbBlockReference*>(object);
    center = reference->position();
    radius = std::abs(reference->scaleFactors().sx);
    object->close();
    return Acad::eOk;
}

/// The part of the line inside the cutter goes.
void SendTrim(const ads_name cutter, const ads_name line, const AcGePoint3d& position) {
    ads_point picked;
    acdbWcs2Ucs(asDblArray(position), picked, false);
    acedCommand(RTSTR, L"trim", RTENAME, cutter, RTSTR, L"", RTLB, RTENAME, line, RTPOINT, picked,
                RTLE, RTSTR, L"", 0);
}

/// The piece between two points in world coordinates goes.
void SendBreak(const ads_name line, const AcGePoint3d& first, const AcGePoint3d& second) {
    ads_name set = {0, 0};
    acedSSAdd(line, nullptr, set);
    {
        const SystemVariableAtZero snap(L"snapmode");
        const SystemVariableAtZero echo(tkvlt::kCommandEcho);
        acedCommand(RTSTR, L"break", RTPICKS, set, RTPOINT, asDblArray(first), RTPOINT,
                    asDblArray(second), 0);
    }
    acedSSFree(set);
}

/// The two ends that can be cut off; false for another kind of entity.
bool ReadEnds(const AcDbEntity* entity, AcGePoint3d& start, AcGePoint3d& end) {
    if (const AcDbLine* line = AcDbLine::cast(entity)) {
        start = line->startPoint();
        end = line->endPoint();
        return true;
    }
    if (const AcDbPolyline* polyline = AcDbPolyline::cast(entity)) {
        polyline->getPointAt(0, start);
        polyline->getPointAt(1, end);
        return true;
    }
    return false;
}

/// Moves the start or the end onto the circle.
void MoveEnd(AcDbEntity* entity, bool movesEnd, const AcGePoint3d& point) {
    if (AcDbLine* line = AcDbLine::cast(entity)) {
        movesEnd ? line->setEndPoint(point) : line->setStartPoint(point);
    } else if (AcDbPolyline* polyline = AcDbPolyline::cast(entity)) {
        polyline->setPointAt(movesEnd ? 1U : 0U, AcGePoint2d(point.x, point.y));
    }
}

/// Whether the nearest point of the curve lies strictly within the circle and at its very height.
bool ReachesInto(const AcDbEntity* entity, const AcGePoint3d& center, double radius) {
    AcGePoint3d closest;
    AcDbCurve::cast(entity)->getClosestPointTo(center, closest, false);
    return closest.distanceTo(center) < radius && closest.z == center.z;
}

/// What remains to be done with the entity closed.
struct Cut {
    Acad::ErrorStatus status = Acad::eOk;
    AcGePoint3dArray points;
};

/// Finds the meeting points with the circle; with one the end moves at once.
Cut CutOpenEntity(AcDbEntity* entity, const AcGePoint3d& center, double radius) {
    Cut cut;
    AcGePoint3d start;
    AcGePoint3d end;
    if (!ReadEnds(entity, start, end) || !ReachesInto(entity, center, radius)) {
        return cut;
    }
    const std::unique_ptr<AcDbCircle> cutter = MakeCutter(center, radius);
    cut.status = entity->intersectWith(cutter.get(), AcDb::kOnBothOperands, cut.points);
    if (cut.status == Acad::eOk && cut.points.length() == 1) {
        const bool movesEnd = end.distanceTo(center) <= start.distanceTo(center);
        MoveEnd(entity, movesEnd, cut.points[0]);
    }
    return cut;
}

} // namespace

Acad::ErrorStatus PelBlockTrimLine(AcDbObjectId line, AcDbObjectId block) {
    ads_name lineName = {0, 0};
    ads_name blockName = {0, 0};
    Acad::ErrorStatus status = acdbGetAdsName(lineName, line);
    if (status == Acad::eOk) {
        status = acdbGetAdsName(blockName, block);
    }
    AcGePoint3d center;
    double radius = 0.0;
    if (status == Acad::eOk) {
        status = ReadRim(block, center, radius);
    }
    if (status != Acad::eOk) {
        return status;
    }
    const AcDbObjectId cutter = tkvlt::EnterEntity(MakeCutter(center, radius));
    ads_name cutterName = {0, 0};
    status = acdbGetAdsName(cutterName, cutter);
    if (status != Acad::eOk) {
        return status;
    }
    SendTrim(cutterName, lineName, center);
    EraseObject(cutter);
    return Acad::eOk;
}

Acad::ErrorStatus PelBlockTrimLine(AcDbObjectId line, AcGePoint3d center, double radius) {
    ads_name name = {0, 0};
    Acad::ErrorStatus status = acdbGetAdsName(name, line);
    if (status != Acad::eOk) {
        return status;
    }
    AcDbEntity* entity = nullptr;
    status = acdbOpenAcDbEntity(entity, line, AcDb::kForWrite);
    if (status != Acad::eOk) {
        return status;
    }
    const Cut cut = CutOpenEntity(entity, center, radius);
    entity->close();
    if (cut.status == Acad::eOk && cut.points.length() == 2) {
        SendBreak(name, cut.points[0], cut.points[1]);
    }
    return cut.status;
}

Acad::ErrorStatus PelBlockTrimLine(AcDbObjectIdArray lines, AcGePoint3d center, double radius) {
    for (int i = 0; i < lines.length(); ++i) {
        PelBlockTrimLine(lines[i], center, radius);
    }
    return Acad::eOk;
}
