#include "dxf/EntityLoader.h"
#include "dxf/LoadContext.h"
#include "dxf/Sections.h"

namespace host_dxf {

void loadEntities(LoadContext& context) {
    context.completeBlocks();
    EntityLoader loader(context);
    while (!context.reader().atRecord("ENDSEC")) {
        loader.readRecord();
        loader.addTo(context.spaceOf(loader.record()));
    }
}

} // namespace host_dxf
