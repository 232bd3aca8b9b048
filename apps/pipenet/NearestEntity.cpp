#include "NearestEntity.h"

#include "OpenedObject.h"
#include "PlanCurve.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace pipenet {

namespace {

double distanceToBox(const AcDbExtents& box, const PlanPoint& place) {
    const double dx = std::max({box.minPoint().x - place.x, 0.0, place.x - box.maxPoint().x});
    const double dy = std::max({box.minPoint().y - place.y, 0.0, place.y - box.maxPoint().y});
    return std::hypot(dx, dy);
}

double distanceToBlock(const NetworkEntity& entity, const PlanPoint& place) {
    const siblings::OpenedObject<AcDbBlockReference> block(entity.id, AcDb::kForRead);
    if (!block) {
        return std::numeric_limits<double>::infinity();
    }
    AcDbExtents box;
    if (entity.kind == EntityKind::tank && block->geomExtentsBestFit(box) == Acad::eOk) {
        return distanceToBox(box, place);
    }
    return distance(PlanPoint{block->position().x, block->position().y}, place);
}

} // namespace

AcDbObjectId nearestEntity(const Drawing& drawing, const AcGePoint3d& place) {
    const PlanPoint spot{place.x, place.y};
    AcDbObjectId nearest;
    double least = std::numeric_limits<double>::infinity();
    for (const NetworkEntity& entity : drawing.networkEntities()) {
        const double here = entity.kind == EntityKind::pipe
                                ? distance(planCurve(entity.id, kPiecesToMeasure), spot)
                                : distanceToBlock(entity, spot);
        if (here < least) {
            least = here;
            nearest = entity.id;
        }
    }
    return nearest;
}

} // namespace pipenet
