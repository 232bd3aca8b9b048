#include "database/DatabaseBuilder.h"

#include "database/AcDbAttribute.h"
#include "database/NameKey.h"
#include "database/ObjectIdPacking.h"
#include "database/OpenObjects.h"

#include <algorithm>

namespace host_db {

void DatabaseBuilder::setSource(std::unique_ptr<DrawingSource> source) {
    database_.source_ = std::move(source);
}

void DatabaseBuilder::setHandleSeed(std::uint64_t seed) {
    database_.handleSeed_ = std::max(database_.handleSeed_, seed);
}

AcDbObject* DatabaseBuilder::object(AcDbObjectId id) const {
    return id.database() == &database_ ? OpenObjects::find(id) : nullptr;
}

bool DatabaseBuilder::isTaken(std::uint64_t handle) const {
    const std::uint32_t place = database_.objects_.find(handle);
    return place != ObjectTable::kNone && !database_.objects_.isVacant(place);
}

bool DatabaseBuilder::claimHandle(std::uint64_t handle) {
    if (handle == 0 || isTaken(handle)) {
        return false;
    }
    database_.objects_.claim(database_.objects_.reserve(handle));
    database_.noteHandle(handle);
    return true;
}

AcDbObjectId DatabaseBuilder::idForHandle(std::uint64_t handle) {
    return handle == 0 ? AcDbObjectId() : database_.idAt(database_.objects_.reserve(handle));
}

std::uint32_t DatabaseBuilder::application(const wchar_t* name) {
    const std::uint32_t known = database_.applications_.find(name);
    if (known != XdataApplications::kNone) {
        return known;
    }
    ensureRecord(Table::RegApp, name);
    return database_.applications_.find(name);
}

std::uint32_t DatabaseBuilder::applicationSet(std::span<const std::uint32_t> applications) {
    return database_.applications_.setOf(applications);
}

AcDbObjectId DatabaseBuilder::tableId(Table table) const {
    switch (table) {
    case Table::Block:
        return database_.blockTable_;
    case Table::Layer:
        return database_.layerTable_;
    case Table::Linetype:
        return database_.linetypeTable_;
    case Table::TextStyle:
        return database_.textStyleTable_;
    case Table::DimStyle:
        return database_.dimStyleTable_;
    case Table::RegApp:
        break;
    }
    return database_.regAppTable_;
}

AcDbSymbolTable& DatabaseBuilder::tableOf(Table table) const {
    return *objectAs<AcDbSymbolTable>(tableId(table));
}

bool DatabaseBuilder::adoptTable(Table table, const ObjectHeader& header) {
    switch (table) {
    case Table::Block:
        return adopt(database_.blockTable_, header);
    case Table::Layer:
        return adopt(database_.layerTable_, header);
    case Table::Linetype:
        return adopt(database_.linetypeTable_, header);
    case Table::TextStyle:
        return adopt(database_.textStyleTable_, header);
    case Table::DimStyle:
        return adopt(database_.dimStyleTable_, header);
    case Table::RegApp:
        break;
    }
    return adopt(database_.regAppTable_, header);
}

bool DatabaseBuilder::adoptNamedObjects(const ObjectHeader& header) {
    return adopt(database_.namedObjects_, header);
}

bool DatabaseBuilder::adopt(AcDbObjectId& place, const ObjectHeader& header) {
    AcDbObject& adopted = *object(place);
    if (header.handle != 0) {
        if (isTaken(header.handle)) {
            return false;
        }
        // References made before to this handle must lead here, so the object moves to its place.
        const std::uint32_t reserved = database_.objects_.reserve(header.handle);
        const auto old = static_cast<std::uint32_t>(placeOf(place.asOldId()));
        database_.put(reserved, database_.objects_.take(old), AcDbObjectId());
        database_.noteHandle(header.handle);
        place = database_.idAt(reserved);
    }
    setHeader(adopted, header);
    return true;
}

void DatabaseBuilder::setHeader(AcDbObject& object, const ObjectHeader& header) {
    object.source_ = header.source;
    object.applicationSet_ = header.applicationSet;
    object.modified_ = header.source.isEmpty();
    if (!header.extensionDictionary.isNull()) {
        object.extra().extensionDictionary = header.extensionDictionary;
    }
}

AcDbObjectId DatabaseBuilder::enter(std::unique_ptr<AcDbObject> object, AcDbObjectId owner,
                                    const ObjectHeader& header) {
    std::uint32_t place = 0;
    if (header.handle == 0) {
        place = database_.objects_.append();
    } else {
        place = database_.objects_.reserve(header.handle);
        if (!database_.objects_.isVacant(place)) {
            return {};
        }
        database_.noteHandle(header.handle);
    }
    setHeader(*object, header);
    database_.put(place, std::move(object), owner);
    return database_.idAt(place);
}

AcDbObjectId DatabaseBuilder::addRecord(Table table, std::unique_ptr<AcDbSymbolTableRecord> record,
                                        const wchar_t* name, int flags,
                                        const ObjectHeader& header) {
    AcDbSymbolTableRecord& added = *record;
    added.AcDbSymbolTableRecord::setName(name);
    added.setFlags(flags);
    const AcDbObjectId id = enter(std::move(record), tableId(table), header);
    if (!id.isNull()) {
        tableOf(table).enter(added);
        if (table == Table::RegApp) {
            database_.applications_.add(name);
        }
    }
    return id;
}

AcDbObjectId DatabaseBuilder::findRecord(Table table, const wchar_t* name) const {
    return tableOf(table).find(name);
}

AcDbObjectId DatabaseBuilder::ensureRecord(Table table, const wchar_t* name) {
    const AcDbObjectId known = findRecord(table, name);
    return known.isNull() ? makeRecord(table, name) : known;
}

AcDbObjectId DatabaseBuilder::makeRecord(Table table, const wchar_t* name) {
    std::unique_ptr<AcDbSymbolTableRecord> record;
    switch (table) {
    case Table::Block:
        record = std::make_unique<AcDbBlockTableRecord>();
        break;
    case Table::Layer:
        record = std::make_unique<AcDbLayerTableRecord>();
        break;
    case Table::Linetype:
        record = std::make_unique<AcDbLinetypeTableRecord>();
        break;
    case Table::TextStyle:
        record = std::make_unique<AcDbTextStyleTableRecord>();
        break;
    case Table::DimStyle:
        record = std::make_unique<AcDbDimStyleTableRecord>();
        break;
    case Table::RegApp:
        record = std::make_unique<AcDbRegAppTableRecord>();
        break;
    }
    ObjectHeader header;
    // Once the drawing is complete a new record needs its handle at once.
    header.handle = database_.complete_ ? database_.newHandle() : 0;
    return addRecord(table, std::move(record), name, 0, header);
}

AcDbObjectId DatabaseBuilder::addBlock(const wchar_t* name, int flags, const ObjectHeader& header) {
    return addRecord(Table::Block, std::make_unique<AcDbBlockTableRecord>(), name, flags, header);
}

AcDbObjectId DatabaseBuilder::ensureBlock(const wchar_t* name) {
    return ensureRecord(Table::Block, name);
}

void DatabaseBuilder::setBlockOrigin(AcDbObjectId block, const AcGePoint3d& origin) {
    if (auto* record = objectAs<AcDbBlockTableRecord>(block)) {
        record->origin_ = origin;
    }
}

void DatabaseBuilder::setSpaces(std::span<const AcDbObjectId> blocks) {
    database_.spaces_.assign(blocks.begin(), blocks.end());
}

void DatabaseBuilder::setLayout(AcDbObjectId block, AcDbObjectId layout) {
    if (auto* record = objectAs<AcDbBlockTableRecord>(block)) {
        record->layout_ = layout;
    }
}

void DatabaseBuilder::dress(AcDbEntity& entity, const EntityHeader& header) {
    entity.layerId_ = header.layer.isNull() ? ensureRecord(Table::Layer, L"0") : header.layer;
    entity.linetypeId_ = header.linetype;
    entity.colorIndex_ = header.color;
    entity.visibility_ = header.invisible ? AcDb::kInvisible : AcDb::kVisible;
}

AcDbObjectId DatabaseBuilder::addEntity(AcDbObjectId block, std::unique_ptr<AcDbEntity> entity,
                                        const EntityHeader& header) {
    auto* record = objectAs<AcDbBlockTableRecord>(block);
    if (record == nullptr) {
        return {};
    }
    dress(*entity, header);
    const AcDbObjectId id = enter(std::move(entity), block, header);
    if (!id.isNull()) {
        record->entities_.push_back(id);
    }
    return id;
}

AcDbObjectId DatabaseBuilder::addAttribute(AcDbObjectId reference,
                                           std::unique_ptr<AcDbAttribute> attribute,
                                           const EntityHeader& header) {
    auto* owner = objectAs<AcDbBlockReference>(reference);
    if (owner == nullptr) {
        return {};
    }
    dress(*attribute, header);
    const AcDbObjectId id = enter(std::move(attribute), reference, header);
    if (!id.isNull()) {
        if (!owner->attributes_) {
            owner->attributes_ = std::make_unique<AcDbBlockReference::Attributes>();
        }
        owner->attributes_->ids.push_back(id);
    }
    return id;
}

void DatabaseBuilder::setAttributesEnd(AcDbObjectId reference, const host_dxf::SourceRange& end) {
    if (auto* owner = objectAs<AcDbBlockReference>(reference)) {
        if (!owner->attributes_) {
            owner->attributes_ = std::make_unique<AcDbBlockReference::Attributes>();
        }
        owner->attributes_->end = end;
    }
}

void DatabaseBuilder::setSourceEnd(AcDbObjectId id, std::size_t end) {
    if (AcDbObject* widened = object(id)) {
        widened->source_.end = end;
    }
}

AcDbObjectId DatabaseBuilder::addObject(std::unique_ptr<AcDbObject> object, AcDbObjectId owner,
                                        const ObjectHeader& header) {
    return enter(std::move(object), owner, header);
}

void DatabaseBuilder::addDictionaryEntry(AcDbObjectId dictionary, const wchar_t* name,
                                         AcDbObjectId entry) {
    if (auto* target = objectAs<AcDbDictionary>(dictionary)) {
        target->enter(name, entry);
    }
}

void DatabaseBuilder::setXrecordItems(AcDbXrecord& record, ResultItems items) {
    record.items_ = std::move(items);
}

void DatabaseBuilder::setCurrentLayer(AcDbObjectId layer) {
    database_.currentLayer_ = layer;
}

void DatabaseBuilder::finish() {
    makeStandardRecords();
    findSpaces();
    settleOwners();
    settleHandles();
    database_.complete_ = true;
}

void DatabaseBuilder::makeStandardRecords() {
    ensureRecord(Table::Layer, L"0");
    for (const wchar_t* name : {L"ByBlock", L"ByLayer", L"Continuous"}) {
        ensureRecord(Table::Linetype, name);
    }
    ensureRecord(Table::TextStyle, L"Standard");
    ensureRecord(Table::DimStyle, L"Standard");
    application(L"ACAD");
    ensureRecord(Table::RegApp, L"ACAD");
}

namespace {

/// A paper space is named by the prefix, with a number behind it from the second on.
bool isPaperSpaceName(const std::wstring& key) {
    constexpr std::wstring_view kPrefix = L"*paper_space";
    return key.compare(0, kPrefix.size(), kPrefix) == 0 &&
           std::all_of(key.begin() + kPrefix.size(), key.end(),
                       [](wchar_t c) { return c >= L'0' && c <= L'9'; });
}

} // namespace

void DatabaseBuilder::findSpaces() {
    std::vector<AcDbObjectId>& spaces = database_.spaces_;
    if (!spaces.empty()) {
        return;
    }
    std::vector<AcDbObjectId> found{ensureBlock(L"*Model_Space")};
    for (const AcDbObjectId id : tableOf(Table::Block).recordIds()) {
        if (isPaperSpaceName(nameKey(objectAs<AcDbSymbolTableRecord>(id)->name()))) {
            found.push_back(id);
        }
    }
    if (found.size() == 1) {
        found.push_back(ensureBlock(L"*Paper_Space"));
    }
    spaces = std::move(found);
}

void DatabaseBuilder::settleOwners() {
    for (const Table table : {Table::Block, Table::Layer, Table::Linetype, Table::TextStyle,
                              Table::DimStyle, Table::RegApp}) {
        for (const AcDbObjectId id : tableOf(table).recordIds()) {
            object(id)->ownerId_ = tableId(table);
        }
    }
}

void DatabaseBuilder::settleHandles() {
    ObjectTable& objects = database_.objects_;
    for (std::uint32_t place = 0; place < objects.size(); ++place) {
        if (objects.handleAt(place) == 0 && objects.at(place) != nullptr) {
            objects.assignHandle(place, database_.newHandle());
        }
    }
}

} // namespace host_db
