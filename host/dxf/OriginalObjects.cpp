#include "dxf/OriginalObjects.h"

#include "database/AcDbAttribute.h"
#include "database/OpenObject.h"
#include "dxf/EntityLoader.h"
#include "dxf/SaveFailure.h"
#include "dxf/TableRecords.h"
#include "dxf/TextFactory.h"

namespace host_dxf {

namespace {

template<typename Class>
const Class& found(AcDbObjectId id) {
    const Class* const object = host_db::peek<Class>(id);
    if (object == nullptr) {
        throw SaveFailure("a record of the file cannot be read again");
    }
    return *object;
}

AcDbObjectId tableOf(const AcDbDatabase& database, LoadContext::Table table) {
    using Table = LoadContext::Table;
    switch (table) {
    case Table::Block:
        return database.blockTableId();
    case Table::Layer:
        return database.layerTableId();
    case Table::Linetype:
        return database.linetypeTableId();
    case Table::TextStyle:
        return database.textStyleTableId();
    case Table::DimStyle:
        return database.dimStyleTableId();
    case Table::RegApp:
        break;
    }
    return database.regAppTableId();
}

} // namespace

OriginalObjects::OriginalObjects(const DxfDrawingSource& source)
    : database_(false), context_(database_, source, surveyFile(source.file()), nullptr) {
    context_.completeBlocks();
    block_ = context_.builder().addBlock(L"*Changed", 0, {});
}

void OriginalObjects::moveTo(const SourceRange& range) {
    context_.reader().moveTo(context_.file(), {range.firstLine, range.begin});
}

const AcDbEntity& OriginalObjects::entity(const SourceRange& range) {
    moveTo(range);
    if (context_.reader().atRecord("ATTRIB")) {
        return found<AcDbEntity>(attribute());
    }
    EntityLoader loader(context_);
    loader.readRecord();
    const AcDbObjectId known = knownUnder(LoadContext::ownHandle(loader.record()));
    if (!known.isNull()) {
        return found<AcDbEntity>(known);
    }
    loader.addTo(block_);
    return found<AcDbEntity>(found<AcDbBlockTableRecord>(block_).entityIds().back());
}

AcDbObjectId OriginalObjects::attribute() {
    DxfRecord record;
    context_.reader().read(record);
    // A reference that was read before has brought its attributes along.
    const AcDbObjectId known = knownUnder(LoadContext::ownHandle(record));
    if (!known.isNull()) {
        return known;
    }
    host_db::EntityHeader header = context_.entityHeader(record);
    header.handle = 0; // its reference may still come and bring it along
    return context_.builder().addEntity(block_, makeAttribute(context_, record), header);
}

AcDbObjectId OriginalObjects::knownUnder(std::uint64_t handle) const {
    const std::uint32_t place = database_.objects().find(handle);
    const AcDbObject* const object = database_.objects().at(place);
    return object == nullptr ? AcDbObjectId::kNull : object->objectId();
}

const AcDbSymbolTableRecord& OriginalObjects::tableRecord(const SourceRange& range) {
    moveTo(range);
    DxfRecord record;
    context_.reader().read(record);
    const AcDbObjectId known = knownUnder(LoadContext::ownHandle(record));
    if (!known.isNull()) {
        return found<AcDbSymbolTableRecord>(known);
    }
    const auto table = tableOfName(record.type);
    if (!table || !addTableRecord(context_, record)) {
        throw SaveFailure("a record of the file cannot be read again");
    }
    return found<AcDbSymbolTableRecord>(
        found<AcDbSymbolTable>(tableOf(database_, *table)).recordIds().back());
}

} // namespace host_dxf
