#include "database/AcDbPolyline.h"

#include "database/Normals.h"
#include "database/PolylinePath.h"

#include <algorithm>
#include <cmath>

ACRX_DEFINE_MEMBERS(AcDbPolyline, AcDbCurve, L"LWPOLYLINE")

AcDbPolyline::AcDbPolyline(unsigned int vertices) {
    vertices_.reserve(vertices);
}

AcRxObject* AcDbPolyline::clone() const {
    return new AcDbPolyline(*this);
}

AcGePoint3d AcDbPolyline::worldPoint(unsigned int index) const {
    const AcGePoint2d& point = vertices_[index].point;
    const bool liesInPlan = normal_.x == 0.0 && normal_.y == 0.0 && normal_.z == 1.0;
    if (liesInPlan && std::isfinite(point.x) && std::isfinite(point.y) &&
        std::isfinite(elevation_)) {
        // What the identity would give: it makes 0 of -0.
        return {point.x + 0.0, point.y + 0.0, elevation_ + 0.0};
    }
    return AcGeMatrix3d::planeToWorld(normal_) * AcGePoint3d(point.x, point.y, elevation_);
}

unsigned int AcDbPolyline::nextOf(unsigned int index) const {
    return index + 1 == numVerts() ? 0 : index + 1;
}

Acad::ErrorStatus AcDbPolyline::getPointAt(unsigned int index, AcGePoint3d& point) const {
    if (index >= numVerts()) {
        return Acad::eInvalidIndex;
    }
    point = worldPoint(index);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::getPointAt(unsigned int index, AcGePoint2d& point) const {
    if (index >= numVerts()) {
        return Acad::eInvalidIndex;
    }
    point = vertices_[index].point;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::getBulgeAt(unsigned int index, double& bulge) const {
    if (index >= numVerts()) {
        return Acad::eInvalidIndex;
    }
    bulge = vertices_[index].bulge;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::getWidthsAt(unsigned int index, double& start, double& end) const {
    if (index >= numVerts()) {
        return Acad::eInvalidIndex;
    }
    start = vertices_[index].startWidth;
    end = vertices_[index].endWidth;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::setPointAt(unsigned int index, const AcGePoint2d& point) {
    return index < numVerts() ? change(vertices_[index].point, point) : Acad::eInvalidIndex;
}

Acad::ErrorStatus AcDbPolyline::setBulgeAt(unsigned int index, double bulge) {
    return index < numVerts() ? change(vertices_[index].bulge, bulge) : Acad::eInvalidIndex;
}

Acad::ErrorStatus AcDbPolyline::setWidthsAt(unsigned int index, double start, double end) {
    if (index >= numVerts()) {
        return Acad::eInvalidIndex;
    }
    const Acad::ErrorStatus status = change(vertices_[index].startWidth, std::max(start, 0.0));
    return status == Acad::eOk ? change(vertices_[index].endWidth, std::max(end, 0.0)) : status;
}

Acad::ErrorStatus AcDbPolyline::addVertexAt(unsigned int index, const AcGePoint2d& point,
                                            double bulge, double startWidth, double endWidth) {
    if (index > numVerts()) {
        return Acad::eInvalidIndex;
    }
    const Acad::ErrorStatus status = prepareWrite();
    if (status == Acad::eOk) {
        vertices_.insert(vertices_.begin() + index,
                         {point, bulge, std::max(startWidth, 0.0), std::max(endWidth, 0.0)});
    }
    return status;
}

Acad::ErrorStatus AcDbPolyline::removeVertexAt(unsigned int index) {
    if (index >= numVerts()) {
        return Acad::eInvalidIndex;
    }
    const Acad::ErrorStatus status = prepareWrite();
    if (status == Acad::eOk) {
        vertices_.erase(vertices_.begin() + index);
    }
    return status;
}

Acad::ErrorStatus AcDbPolyline::reset(Adesk::Boolean reuse, unsigned int kept) {
    const Acad::ErrorStatus status = prepareWrite();
    if (status == Acad::eOk) {
        vertices_.resize(reuse == 0 ? 0 : std::min(kept, numVerts()));
    }
    return status;
}

AcDbPolyline::SegType AcDbPolyline::segType(unsigned int index) const {
    if (index >= numVerts()) {
        return kEmpty;
    }
    if (numVerts() == 1 || (!closed_ && index + 1 == numVerts())) {
        return kPoint;
    }
    if (worldPoint(index).isEqualTo(worldPoint(nextOf(index)))) {
        return kCoincident;
    }
    return vertices_[index].bulge == 0.0 ? kLine : kArc;
}

Acad::ErrorStatus AcDbPolyline::getArcSegAt(unsigned int index, AcGeCircArc3d& arc) const {
    if (index >= numVerts()) {
        return Acad::eInvalidIndex;
    }
    if (segType(index) != kArc) {
        return Acad::eInvalidInput;
    }
    arc = AcGeCircArc3d::fromBulge(worldPoint(index), worldPoint(nextOf(index)),
                                   vertices_[index].bulge, normal_);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::getLineSegAt(unsigned int index, AcGeLineSeg3d& line) const {
    if (index >= numVerts()) {
        return Acad::eInvalidIndex;
    }
    if (segType(index) != kLine) {
        return Acad::eInvalidInput;
    }
    line.set(worldPoint(index), worldPoint(nextOf(index)));
    return Acad::eOk;
}

Adesk::Boolean AcDbPolyline::isOnlyLines() const {
    return hasBulges() == 0 ? Adesk::kTrue : Adesk::kFalse;
}

Adesk::Boolean AcDbPolyline::hasBulges() const {
    const bool any = std::any_of(vertices_.begin(), vertices_.end(),
                                 [](const Vertex& vertex) { return vertex.bulge != 0.0; });
    return any ? Adesk::kTrue : Adesk::kFalse;
}

Acad::ErrorStatus AcDbPolyline::setElevation(double elevation) {
    return change(elevation_, elevation);
}

Acad::ErrorStatus AcDbPolyline::setNormal(const AcGeVector3d& normal) {
    return change(normal_, host_db::unitNormal(normal));
}

Acad::ErrorStatus AcDbPolyline::setClosed(Adesk::Boolean closed) {
    return change(closed_, closed != 0);
}

Acad::ErrorStatus AcDbPolyline::getStartPoint(AcGePoint3d& point) const {
    return vertices_.empty() ? Acad::eDegenerateGeometry : getPointAt(0, point);
}

Acad::ErrorStatus AcDbPolyline::getEndPoint(AcGePoint3d& point) const {
    return vertices_.empty() ? Acad::eDegenerateGeometry
                             : getPointAt(closed_ ? 0 : numVerts() - 1, point);
}

host_db::CurvePath AcDbPolyline::path() const {
    const AcGeMatrix3d toWorld = AcGeMatrix3d::planeToWorld(normal_);
    std::vector<host_db::PathVertex> vertices;
    vertices.reserve(vertices_.size());
    for (const Vertex& vertex : vertices_) {
        vertices.push_back(
            {toWorld * AcGePoint3d(vertex.point.x, vertex.point.y, elevation_), vertex.bulge});
    }
    return host_db::polylinePath(vertices, closed_, normal_);
}
