#include "dxf/EntityGeometry.h"

#include "geometry/AcGeMatrix3d.h"

#include <numbers>

namespace host_dxf {

AcGePoint3d pointOf(const DxfRecord& record, int code) {
    return {record.real(code, 0.0), record.real(code + 10, 0.0), record.real(code + 20, 0.0)};
}

AcGeVector3d extrusionOf(const DxfRecord& record) {
    constexpr int extrusionCode = 210;
    if (record.find(extrusionCode) == nullptr) {
        return AcGeVector3d::kZAxis;
    }
    const AcGePoint3d given = pointOf(record, extrusionCode);
    const bool none = given.x == 0.0 && given.y == 0.0 && given.z == 0.0;
    return none ? AcGeVector3d::kZAxis : AcGeVector3d(given.x, given.y, given.z);
}

AcGePoint3d worldPoint(const AcGePoint3d& point, const AcGeVector3d& extrusion) {
    if (extrusion.x == 0.0 && extrusion.y == 0.0 && extrusion.z > 0.0) {
        return point;
    }
    AcGePoint3d world = point;
    return world.transformBy(AcGeMatrix3d::planeToWorld(extrusion));
}

double angleOf(const DxfRecord& record, int code) {
    return record.real(code, 0.0) * (std::numbers::pi / 180.0);
}

std::vector<AcGePoint3d> pointsOf(const DxfRecord& record, int code) {
    std::vector<AcGePoint3d> points;
    for (const DxfTag& tag : record.tags) {
        if (tag.code == code) {
            points.emplace_back(tag.real, 0.0, 0.0);
        } else if (tag.code == code + 10 && !points.empty()) {
            points.back().y = tag.real;
        } else if (tag.code == code + 20 && !points.empty()) {
            points.back().z = tag.real;
        }
    }
    return points;
}

std::vector<double> realsOf(const DxfRecord& record, int code) {
    std::vector<double> values;
    for (const DxfTag& tag : record.tags) {
        if (tag.code == code) {
            values.push_back(tag.real);
        }
    }
    return values;
}

} // namespace host_dxf
