#include "dxf/DrawingWriter.h"

#include "database/AcDbAttribute.h"
#include "database/AcDbBlockReference.h"
#include "database/AcDbDictionary.h"
#include "database/AcDbObjectIterator.h"
#include "database/AcDbText.h"
#include "database/AcDbXrecord.h"
#include "database/OpenObject.h"
#include "database/SymbolTables.h"
#include "dxf/HeaderEditor.h"
#include "dxf/RawRecord.h"
#include "dxf/SaveFailure.h"
#include "platform/Encoding.h"
#include "platform/WideCharacters.h"

#include <algorithm>
#include <array>
#include <memory>

namespace host_dxf {

namespace {

constexpr std::array<std::string_view, 6> sectionOrder = {"HEADER", "CLASSES",  "TABLES",
                                                          "BLOCKS", "ENTITIES", "OBJECTS"};

/// Names of records that every reader knows without being told.
constexpr std::array<const wchar_t*, 6> takenForGranted = {L"0",          L"ByLayer",  L"ByBlock",
                                                           L"Continuous", L"Standard", L"ACAD"};

bool isTakenForGranted(const AcDbSymbolTableRecord& record) {
    for (const wchar_t* const name : takenForGranted) {
        if (host_text::compareNoCase(record.name(), name) == 0) {
            return true;
        }
    }
    return false;
}

std::array<AcDbObjectId, 6> tablesOf(const AcDbDatabase& database) {
    return {database.linetypeTableId(), database.layerTableId(),    database.textStyleTableId(),
            database.regAppTableId(),   database.dimStyleTableId(), database.blockTableId()};
}

std::string nameInFile(const AcDbSymbolTable& table) {
    const AcDbDatabase& database = *table.database();
    constexpr std::array<const char*, 6> names = {"LTYPE", "LAYER",    "STYLE",
                                                  "APPID", "DIMSTYLE", "BLOCK_RECORD"};
    const auto ids = tablesOf(database);
    std::size_t i = 0;
    while (i + 1 < ids.size() && ids[i] != table.objectId()) {
        ++i;
    }
    return names[i];
}

/// Entities of these spaces stand in the ENTITIES section, those of other spaces with the block.
bool isInEntitySection(const AcDbBlockTableRecord& block) {
    return host_text::compareNoCase(block.name(), L"*Model_Space") == 0 ||
           host_text::compareNoCase(block.name(), L"*Paper_Space") == 0;
}

} // namespace

std::string DrawingWriter::write() {
    eraseGoneObjects();
    findRenames();
    writeTables();
    writeBlocks();
    writeObjects();
    addNeededRecords();
    updateHeader(context_);
    writeAdditions();
    const std::string_view file = context_.file().bytes();
    return context_.edits().isEmpty() ? std::string(file) : context_.edits().applied(file);
}

void DrawingWriter::eraseGoneObjects() {
    const host_db::ObjectTable& objects = context_.database().objects();
    for (std::size_t place = 0; place < objects.size(); ++place) {
        const AcDbObject* const object = objects.at(place);
        if (object == nullptr) {
            continue;
        }
        editor_.eraseReplaced(*object);
        if (!context_.isGone(*object)) {
            continue;
        }
        editor_.erase(*object);
        if (AcDbAttribute::cast(object) != nullptr) {
            touched_.insert(object->ownerId());
        }
    }
}

// Records name others by their names, so a new name of one changes all that use it.
void DrawingWriter::findRenames() {
    for (const AcDbObjectId tableId : tablesOf(context_.database())) {
        for (const AcDbObjectId id : host_db::peek<AcDbSymbolTable>(tableId)->recordIds()) {
            const auto* const record = host_db::peek<AcDbSymbolTableRecord>(id);
            if (record != nullptr && record->isModified() && !context_.isStandIn() &&
                !context_.rangeOf(*record).isEmpty() && editor_.isRenamed(*record)) {
                recordsRenamed_ = true;
            }
        }
    }
}

bool DrawingWriter::lostEntries(const AcDbObject& object) const {
    const auto* const dictionary = AcDbDictionary::cast(&object);
    if (dictionary == nullptr) {
        return false;
    }
    for (const AcDbDictionary::Entry& entry : dictionary->entries()) {
        const AcDbObject* const entered = context_.objectOf(entry.id);
        if (entered != nullptr && context_.isGone(*entered)) {
            return true;
        }
    }
    return false;
}

bool DrawingWriter::hasChanged(const AcDbObject& object) const {
    const AcDbObject* const extension = context_.objectOf(object.extensionDictionary());
    const bool lostExtension = extension != nullptr && context_.isGone(*extension);
    const bool named = recordsRenamed_ && (AcDbEntity::cast(&object) != nullptr ||
                                           AcDbSymbolTableRecord::cast(&object) != nullptr);
    return object.isModified() || context_.isStandIn() || lostExtension || named ||
           touched_.contains(object.objectId()) || lostEntries(object);
}

void DrawingWriter::writeTables() {
    for (const AcDbObjectId id : tablesOf(context_.database())) {
        writeTable(*host_db::peek<AcDbSymbolTable>(id));
    }
}

void DrawingWriter::writeTable(const AcDbSymbolTable& table) {
    if (!context_.rangeOf(table).isEmpty() && hasChanged(table)) {
        update(table);
    }
    for (const AcDbObjectId id : table.recordIds()) {
        const auto* const record = host_db::peek<AcDbSymbolTableRecord>(id);
        if (record == nullptr) {
            continue;
        }
        if (context_.isNew(*record)) {
            addTableRecord(table, *record);
        } else if (!context_.rangeOf(*record).isEmpty() && hasChanged(*record)) {
            update(*record);
        }
    }
}

void DrawingWriter::addTableRecord(const AcDbSymbolTable& table,
                                   const AcDbSymbolTableRecord& record) {
    const std::string name = nameInFile(table);
    if (context_.part(FilePart::Kind::Table, name) == nullptr) {
        context_.create(table);
    }
    const std::string text = records_.tableRecord(record);
    if (!text.empty()) {
        context_.addition(name) += text;
    }
    noteNew(record);
}

void DrawingWriter::writeBlocks() {
    const auto* const blocks = host_db::peek<AcDbSymbolTable>(context_.database().blockTableId());
    // The spaces first, as their order is that of the drawing.
    for (const AcDbObjectId id : context_.database().spaceIds()) {
        if (const auto* const space = host_db::peek<AcDbBlockTableRecord>(id)) {
            writeBlock(*space);
        }
    }
    for (const AcDbObjectId id : blocks->recordIds()) {
        const auto* const block = host_db::peek<AcDbBlockTableRecord>(id);
        if (block != nullptr && !block->isLayout()) {
            writeBlock(*block);
        }
    }
}

void DrawingWriter::writeBlock(const AcDbBlockTableRecord& block) {
    const FilePart* const part = context_.blockPart(block.objectId());
    if (part != nullptr && (block.isModified() || recordsRenamed_)) {
        editor_.updateBlockBegin(block, *part);
    }
    const bool isWhole = part == nullptr && context_.isNew(block);
    if (isWhole) {
        context_.addition("BLOCKS") += records_.block(block);
    }
    for (const AcDbObjectId id : block.entityIds()) {
        const auto* const entity = host_db::peek<AcDbEntity>(id);
        if (entity == nullptr) {
            continue;
        }
        if (isWhole) {
            noteNew(*entity);
            updateAttributesOf(*entity);
        } else {
            writeEntity(*entity, block);
        }
    }
}

void DrawingWriter::writeEntity(const AcDbEntity& entity, const AcDbBlockTableRecord& block) {
    if (context_.isNew(entity)) {
        addEntity(entity, block);
    } else if (hasChanged(entity)) {
        update(entity);
    }
    updateAttributesOf(entity);
}

void DrawingWriter::addEntity(const AcDbEntity& entity, const AcDbBlockTableRecord& block) {
    const SourceRange replaced = entity.replacedRange();
    const FilePart* const part =
        isInEntitySection(block) ? nullptr : context_.blockPart(block.objectId());
    if (!replaced.isEmpty()) {
        context_.edits().insert(replaced.begin, records_.entity(entity)); // keeps the drawing order
    } else if (part == nullptr) {
        context_.addition("ENTITIES") += records_.entity(entity);
    } else {
        context_.blockAddition(*part) += records_.entity(entity);
    }
    noteNew(entity);
}

void DrawingWriter::updateAttributesOf(const AcDbEntity& entity) {
    const auto* const reference = AcDbBlockReference::cast(&entity);
    if (reference == nullptr) {
        return;
    }
    const std::unique_ptr<AcDbObjectIterator> attributes(reference->attributeIterator());
    for (; !attributes->done(); attributes->step()) {
        const auto* const attribute = host_db::peek<AcDbEntity>(attributes->objectId());
        if (!context_.isNew(*attribute) && hasChanged(*attribute)) {
            update(*attribute);
        } else if (context_.isNew(*attribute)) {
            noteNew(*attribute);
        }
    }
}

void DrawingWriter::writeObjects() {
    const auto* const root =
        host_db::peek<AcDbDictionary>(context_.database().namedObjectsDictionaryId());
    if (context_.isImplied(*root) && root->numEntries() > 0) {
        context_.create(*root);
        writeObject(*root);
    }
    const host_db::ObjectTable& objects = context_.database().objects();
    for (std::size_t place = 0; place < objects.size(); ++place) {
        const AcDbObject* const object = objects.at(place);
        const bool done = object == nullptr || AcDbEntity::cast(object) != nullptr ||
                          AcDbSymbolTable::cast(object) != nullptr ||
                          AcDbSymbolTableRecord::cast(object) != nullptr;
        const bool created = object == root && context_.rangeOf(*root).isEmpty();
        if (!done && !created && !context_.isImplied(*object) && !context_.isGone(*object)) {
            writeObject(*object);
        }
    }
}

void DrawingWriter::writeObject(const AcDbObject& object) {
    if (!context_.isNew(object)) {
        if (hasChanged(object)) {
            update(object);
        }
        return;
    }
    noteNew(object);
    if (const auto* const dictionary = AcDbDictionary::cast(&object)) {
        context_.addition("OBJECTS") += records_.dictionary(*dictionary);
    } else if (const auto* const xrecord = AcDbXrecord::cast(&object)) {
        context_.addition("OBJECTS") += records_.xrecord(*xrecord);
    } else {
        throw SaveFailure("a copy of an object of the kind " +
                          host_text::toUtf8(object.dxfTypeName()) + " cannot be written");
    }
}

void DrawingWriter::noteNew(const AcDbObject& object) {
    noteNames(object);
    noteApplications(object);
}

void DrawingWriter::update(const AcDbObject& object) {
    const bool namesNew = editor_.update(object);
    // A linetype points at text styles by their handles, which are no names.
    if (namesNew || AcDbLinetypeTableRecord::cast(&object) != nullptr) {
        noteNames(object);
    }
    if (object.ownXdata() != nullptr) {
        noteApplications(object);
    }
}

void DrawingWriter::need(AcDbObjectId record) {
    if (!record.isNull() && needed_.insert(record).second) {
        neededInOrder_.push_back(record);
    }
}

void DrawingWriter::needStanding(AcDbObjectId record) {
    need(record);
    pointedAt_.insert(record);
}

void DrawingWriter::noteNames(const AcDbObject& object) {
    if (const auto* const entity = AcDbEntity::cast(&object)) {
        need(entity->layerId());
        need(entity->linetypeId());
    }
    if (const auto* const text = AcDbText::cast(&object)) {
        need(text->textStyle());
    }
    if (const auto* const layer = AcDbLayerTableRecord::cast(&object)) {
        need(layer->linetypeObjectId());
    }
    if (const auto* const linetype = AcDbLinetypeTableRecord::cast(&object)) {
        for (const host_db::LinetypeDash& dash : linetype->dashes()) {
            needStanding(dash.style);
        }
    }
}

void DrawingWriter::noteApplications(const AcDbObject& object) {
    const host_db::XdataApplications& applications = context_.database().applications();
    const auto* const table = host_db::peek<AcDbSymbolTable>(context_.database().regAppTableId());
    for (const std::uint32_t application : applications.members(object.applicationSet())) {
        need(table->find(applications.name(application)));
    }
}

void DrawingWriter::addNeededRecords() {
    // The list grows while a layer that is added names its linetype.
    for (std::size_t i = 0; i < neededInOrder_.size(); ++i) {
        const auto* const record = host_db::peek<AcDbSymbolTableRecord>(neededInOrder_[i]);
        const bool isUnsaid = record != nullptr && context_.isImplied(*record);
        // A name is understood without its record, a handle is not.
        if (!isUnsaid || (isTakenForGranted(*record) && !pointedAt_.contains(neededInOrder_[i]))) {
            continue;
        }
        context_.create(*record);
        addTableRecord(*host_db::peek<AcDbSymbolTable>(record->ownerId()), *record);
    }
}

const AcDbSymbolTable* DrawingWriter::tableNamed(std::string_view name) const {
    for (const AcDbObjectId id : tablesOf(context_.database())) {
        const auto* const table = host_db::peek<AcDbSymbolTable>(id);
        if (nameInFile(*table) == name) {
            return table;
        }
    }
    return nullptr;
}

/// The number at the head of a table announces at most how many records follow.
void DrawingWriter::raiseCount(const FilePart& part, const AcDbSymbolTable& table) {
    constexpr int countCode = 70;
    const RawRecord head(context_.file(), part.range);
    const DxfTag* const announced = head.field(countCode);
    std::int64_t count = 0;
    for (const AcDbObjectId id : table.recordIds()) {
        const AcDbObject* const record = host_db::peekObject(id);
        count += record != nullptr && !context_.isImplied(*record) ? 1 : 0;
    }
    if (announced != nullptr && announced->integer < count) {
        overwriteGroup(context_.file(), *announced, {countCode, count}, context_.writer(),
                       context_.edits());
    }
}

std::string DrawingWriter::tableText(const AcDbSymbolTable& table, const std::string& name,
                                     const std::string& body) {
    TagWriter writer = context_.newWriter();
    writer.plain(0, "TABLE");
    writer.plain(2, name);
    if (const std::uint64_t handle = context_.handleOf(table.objectId()); handle != 0) {
        writer.handle(5, handle);
        context_.noteNewHandle();
    }
    if (context_.hasOwners()) {
        writer.handle(330, 0);
    }
    if (context_.hasMarkers()) {
        writer.plain(100, "AcDbSymbolTable");
    }
    writer.integer(70, static_cast<std::int64_t>(table.recordIds().size()));
    std::string text = writer.take() + body;
    writer.plain(0, "ENDTAB");
    return text + writer.take();
}

void DrawingWriter::writeAdditions() {
    for (const auto& [place, text] : context_.blockAdditions()) {
        context_.edits().insert(place, text);
    }
    std::string newTables;
    for (const auto& [name, body] : context_.additions()) {
        const AcDbSymbolTable* const table = tableNamed(name);
        const FilePart* const part = context_.part(FilePart::Kind::Table, name);
        if (table != nullptr && part != nullptr) {
            raiseCount(*part, *table);
            context_.edits().insert(part->bodyEnd, body);
        } else if (table != nullptr) {
            newTables += tableText(*table, name, body);
        }
    }
    for (const std::string_view section : sectionOrder) {
        const std::string name(section);
        const auto added = context_.additions().find(name);
        if (name == "TABLES") {
            addToSection(name, newTables);
        } else if (added != context_.additions().end()) {
            addToSection(name, added->second);
        }
    }
}

void DrawingWriter::addToSection(const std::string& name, const std::string& body) {
    if (body.empty()) {
        return;
    }
    if (const FilePart* const part = context_.part(FilePart::Kind::Section, name)) {
        context_.edits().insert(part->bodyEnd, body);
        return;
    }
    TagWriter writer = context_.newWriter();
    writer.plain(0, "SECTION");
    writer.plain(2, name);
    std::string text = writer.take() + body;
    writer.plain(0, "ENDSEC");
    std::size_t place = context_.outline().endOfFile;
    bool behind = false;
    for (const std::string_view later : sectionOrder) {
        const FilePart* const part = context_.part(FilePart::Kind::Section, later);
        if (behind && part != nullptr) {
            place = std::min(place, part->range.begin);
        }
        behind = behind || later == name;
    }
    context_.edits().insert(place, text + writer.take());
}

} // namespace host_dxf
