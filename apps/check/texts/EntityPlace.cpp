#include "texts/EntityPlace.h"

#include "records/Block.h"
#include "records/Pipe.h"

namespace pipenet {

AcGePoint3d placeOf(const AcDbObjectId& id) {
    if (const _Block block(id, CString(), CString()); block.valid != 0) {
        return block.position;
    }
    const _Pipe pipe(id, CString());
    return pipe.startPoint + (pipe.endPoint - pipe.startPoint) * 0.5;
}

} // namespace pipenet
