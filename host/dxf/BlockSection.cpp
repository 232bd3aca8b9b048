#include "dxf/EntityGeometry.h"
#include "dxf/EntityLoader.h"
#include "dxf/LoadContext.h"
#include "dxf/Sections.h"

namespace host_dxf {

namespace {

/// Reads one definition, from its BLOCK to its ENDBLK.
void loadBlock(LoadContext& context, EntityLoader& loader, DxfRecord& record) {
    RecordReader& reader = context.reader();
    reader.read(record);
    if (record.find(2) == nullptr) {
        throw DxfFailure(record.position, "a BLOCK without a name (group 2)");
    }
    context.claimHandle(record);
    const AcDbObjectId block = context.definitionToFill(record);
    context.builder().setBlockOrigin(block, pointOf(record, 10));
    FilePart part{FilePart::Kind::Block, std::string(record.text(2)),
                  record.range,          record.range.end,
                  record.range.end,      block};
    const std::size_t place = context.outline().parts.size();
    context.outline().parts.push_back(std::move(part));
    while (!reader.atRecord("ENDBLK")) {
        loader.readRecord();
        loader.addTo(block);
    }
    reader.read(record);
    context.claimHandle(record);
    context.outline().parts[place].bodyEnd = record.range.begin;
    context.outline().parts[place].range.end = record.range.end;
}

} // namespace

void loadBlocks(LoadContext& context) {
    context.completeBlocks();
    EntityLoader loader(context);
    DxfRecord record;
    while (!context.reader().atRecord("ENDSEC")) {
        if (!context.reader().atRecord("BLOCK")) {
            context.reader().failExpecting("BLOCK or ENDSEC");
        }
        loadBlock(context, loader, record);
    }
}

} // namespace host_dxf
