#include "database/BlockExtents.h"

#include "database/BlockWalk.h"

namespace host_db {

bool addBlockExtents(const AcDbBlockReference& reference, const AcGeMatrix3d& transform,
                     AcDbExtents& box) {
    AcDbExtents found;
    bool foundAny = false;
    BlockWalk walk(BlockWalk::Cells::Corners,
                   [&](const AcDbEntity& entity, const AcGeMatrix3d& drawnUnder) {
                       foundAny = entity.addExtents(drawnUnder, found) || foundAny;
                   });
    if (!walk.run(reference, transform) || !foundAny) {
        return false;
    }
    box.addExt(found);
    return true;
}

} // namespace host_db
