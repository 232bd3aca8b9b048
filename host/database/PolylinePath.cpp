#include "database/PolylinePath.h"

namespace host_db {

CurvePath polylinePath(const std::vector<PathVertex>& vertices, bool closed,
                       const AcGeVector3d& normal) {
    CurvePath path;
    const std::size_t count = vertices.size();
    if (count == 1) {
        path.add(SegmentPiece{vertices[0].point, vertices[0].point});
        return path;
    }
    const std::size_t segments = count == 0 || closed ? count : count - 1;
    for (std::size_t i = 0; i < segments; ++i) {
        const PathVertex& from = vertices[i];
        const AcGePoint3d& to = vertices[(i + 1) % count].point;
        if (from.bulge == 0.0 || from.point.isEqualTo(to)) {
            path.add(SegmentPiece{from.point, to});
        } else {
            path.add(arcPieceOf(AcGeCircArc3d::fromBulge(from.point, to, from.bulge, normal)));
        }
    }
    return path;
}

} // namespace host_db
