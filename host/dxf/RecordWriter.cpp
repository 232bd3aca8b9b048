#include "dxf/RecordWriter.h"

#include "database/AcDb2dPolyline.h"
#include "database/AcDb3dPolyline.h"
#include "database/AcDbAttribute.h"
#include "database/AcDbBlockReference.h"
#include "database/AcDbDictionary.h"
#include "database/AcDbObjectIterator.h"
#include "database/AcDbPolyline.h"
#include "database/AcDbXrecord.h"
#include "database/OpenObject.h"
#include "database/SymbolTables.h"
#include "dxf/DescribedGeometry.h"
#include "dxf/EntityDescription.h"
#include "dxf/Numbers.h"
#include "dxf/RecordCopier.h"
#include "dxf/SaveFailure.h"
#include "dxf/TableDescription.h"
#include "platform/Encoding.h"
#include "platform/WideCharacters.h"

#include <memory>

namespace host_dxf {

namespace {

std::string nameForMessage(const AcDbObject& object) {
    return host_text::toUtf8(object.dxfTypeName()) + " with the handle " +
           handleText(object.objectId().handle().value());
}

} // namespace

void RecordWriter::head(std::string_view type, const AcDbObject& object, int handleCode) {
    writer_.plain(0, type);
    if (context_.hasHandles()) {
        writer_.handle(handleCode, object.objectId().handle().value());
        context_.noteNewHandle();
    }
    const AcDbObject* const dictionary = context_.objectOf(object.extensionDictionary());
    if (dictionary != nullptr && !context_.isGone(*dictionary)) {
        writer_.plain(102, "{ACAD_XDICTIONARY");
        writer_.handle(360, dictionary->objectId().handle().value());
        writer_.plain(102, "}");
    }
}

void RecordWriter::freshHandle() {
    const std::uint64_t handle = context_.newHandle();
    if (handle != 0) {
        writer_.handle(5, handle);
    }
}

void RecordWriter::owner(AcDbObjectId owner) {
    const std::uint64_t handle = context_.handleOf(owner);
    if (context_.hasOwners() && handle != 0) {
        writer_.handle(330, handle);
    }
}

void RecordWriter::marker(std::string_view name) {
    if (context_.hasMarkers()) {
        writer_.plain(100, name);
    }
}

void RecordWriter::attributeVersion(const RecordDescription& description,
                                    std::string_view groupMarker) {
    const bool tagged = description.type == "ATTRIB" || description.type == "ATTDEF";
    if (tagged && groupMarker.starts_with("AcDbAttribute") && context_.hasVersions()) {
        writer_.integer(280, 0);
    }
}

void RecordWriter::groups(const RecordDescription& description, std::size_t first) {
    for (std::size_t g = first; g < description.groups.size(); ++g) {
        marker(description.groups[g].marker);
        attributeVersion(description, description.groups[g].marker);
        writer_.fields(description.groups[g].fields);
    }
    for (const Fields& element : description.list.elements) {
        writer_.fields(element);
    }
}

void RecordWriter::xdata(const AcDbObject& object) {
    resbuf* const chain = object.xData();
    const host_db::ResultItems items = host_db::itemsOf(chain);
    acutRelRb(chain);
    for (const host_db::ResultItem& item : items) {
        context_.items().write(item, writer_);
    }
}

/// The space that an entity outside of a BLOCK belongs to.
void RecordWriter::place(const AcDbEntity& entity) {
    if (isInMainPaperSpace(entity)) {
        writer_.integer(67, 1);
    }
}

/// Writes the entity as a copy of a record of the file; false when it is none. A heavy polyline
/// comes with its vertices and the end mark.
bool RecordWriter::copy(const AcDbEntity& entity) {
    RecordCopier copier(context_, entity);
    if (!copier.canCopy()) {
        return false;
    }
    const std::size_t standing = copier.standingVertices();
    const bool grew = heavyVertexCount(entity) > standing;
    writer_.groups(
        copier.copied(grew ? RecordWriter(context_).vertices(entity, standing) : std::string()));
    return true;
}

void RecordWriter::entityRecord(const AcDbEntity& entity) {
    if (!copy(entity)) {
        describedRecord(entity);
    }
}

void RecordWriter::describedRecord(const AcDbEntity& entity) {
    const RecordDescription description = describeEntity(entity);
    if (description.type.empty()) {
        throw SaveFailure("a copy of an entity of the kind " + nameForMessage(entity) +
                          " cannot be written");
    }
    const bool heavy = description.type == "LWPOLYLINE" && !context_.hasLightPolylines();
    if (!context_.hasMarkers() && (description.type == "ELLIPSE" || description.type == "SPLINE")) {
        throw SaveFailure("a drawing of version R12 holds no " + nameForMessage(entity));
    }
    head(heavy ? "POLYLINE" : description.type, entity);
    owner(entity.ownerId());
    marker("AcDbEntity");
    place(entity);
    writer_.fields(description.groups[0].fields);
    if (heavy) {
        lightPolyline(entity);
    } else {
        groups(description, 1);
    }
    xdata(entity);
}

// A version without light polylines has heavy ones that draw the same.
void RecordWriter::lightPolyline(const AcDbEntity& entity) {
    const auto& polyline = *AcDbPolyline::cast(&entity);
    Fields fields{{66, std::int64_t{1}},
                  {10, 0.0},
                  {20, 0.0},
                  {30, polyline.elevation()},
                  {70, std::int64_t{polyline.isClosed() != 0}}};
    addExtrusion(fields, polyline.normal());
    marker("AcDb2dPolyline");
    writer_.fields(fields);
}

void RecordWriter::ownedRecord(std::string_view type, const AcDbEntity& owningEntity) {
    const RecordDescription description = describeEntity(owningEntity);
    writer_.plain(0, type);
    freshHandle();
    owner(owningEntity.objectId());
    marker("AcDbEntity");
    place(owningEntity);
    writer_.field(description.groups[0].fields[0]); // the layer
}

void RecordWriter::vertex(const AcDbEntity& polyline, std::string_view kind, const Fields& fields) {
    ownedRecord("VERTEX", polyline);
    marker("AcDbVertex");
    marker(kind);
    writer_.fields(fields);
}

void RecordWriter::allVertices(const AcDbEntity& polyline, std::size_t first) {
    if (const auto* const light = AcDbPolyline::cast(&polyline)) {
        const RecordDescription description = describeEntity(*light);
        for (Fields element : description.list.elements) {
            element.insert(element.begin() + 2, {30, light->elevation()});
            vertex(polyline, "AcDb2dVertex", element);
        }
    } else if (const auto* const flat = AcDb2dPolyline::cast(&polyline)) {
        for (std::size_t i = first; i < flat->vertices().size(); ++i) {
            const AcDb2dPolyline::Vertex& each = flat->vertices()[i];
            Fields fields;
            addPoint(fields, 10, each.point);
            fields.push_back(usualReal(40, each.startWidth, 0.0));
            fields.push_back(usualReal(41, each.endWidth, 0.0));
            fields.push_back(usualReal(42, each.bulge, 0.0));
            fields.push_back(usualInteger(70, each.flags, 0));
            vertex(polyline, "AcDb2dVertex", fields);
        }
    } else if (const auto* const spatial = AcDb3dPolyline::cast(&polyline)) {
        constexpr int spatialVertex = 32;
        for (std::size_t i = first; i < spatial->vertices().size(); ++i) {
            const AcDb3dPolyline::Vertex& each = spatial->vertices()[i];
            Fields fields;
            addPoint(fields, 10, each.point);
            // Not a temporary, for the reason given in `addPoint`.
            const Field flags{70, std::int64_t{each.flags | spatialVertex}};
            fields.push_back(flags);
            vertex(polyline, "AcDb3dPolylineVertex", fields);
        }
    }
}

void RecordWriter::endMark(const AcDbEntity& owningEntity) {
    ownedRecord("SEQEND", owningEntity);
}

std::string RecordWriter::entity(const AcDbEntity& entity) {
    if (!copy(entity)) {
        describedRecord(entity);
        const bool light = AcDbPolyline::cast(&entity) != nullptr && !context_.hasLightPolylines();
        if (light || AcDb2dPolyline::cast(&entity) != nullptr ||
            AcDb3dPolyline::cast(&entity) != nullptr) {
            allVertices(entity, 0);
            endMark(entity);
        }
    }
    if (const auto* const reference = AcDbBlockReference::cast(&entity)) {
        attributesOf(*reference);
    }
    return writer_.take();
}

void RecordWriter::attributesOf(const AcDbBlockReference& reference) {
    if (host_db::peek<AcDbBlockTableRecord>(reference.blockTableRecord()) == nullptr) {
        throw SaveFailure("the " + nameForMessage(reference) + " has no block definition");
    }
    const std::unique_ptr<AcDbObjectIterator> attributes(reference.attributeIterator());
    const bool any = !attributes->done();
    for (; !attributes->done(); attributes->step()) {
        entityRecord(*host_db::peek<AcDbEntity>(attributes->objectId()));
    }
    if (any) {
        endMark(reference);
    }
}

std::string RecordWriter::attribute(const AcDbEntity& attribute) {
    entityRecord(attribute);
    return writer_.take();
}

std::string RecordWriter::sequenceEnd(const AcDbEntity& owningEntity) {
    endMark(owningEntity);
    return writer_.take();
}

std::string RecordWriter::vertices(const AcDbEntity& polyline, std::size_t first) {
    allVertices(polyline, first);
    return writer_.take();
}

void RecordWriter::tableExtras(const AcDbSymbolTableRecord& record) {
    if (AcDbLayerTableRecord::cast(&record) != nullptr && context_.hasOwners()) {
        constexpr int usualLineweight = -3;
        writer_.integer(370, usualLineweight);
    } else if (const auto* const block = AcDbBlockTableRecord::cast(&record);
               block != nullptr && context_.hasOwners()) {
        writer_.handle(340, 0);
    }
}

std::string RecordWriter::tableRecord(const AcDbSymbolTableRecord& record) {
    constexpr int dimStyleHandle = 105;
    const RecordDescription description = describeTableRecord(record, !context_.hasMarkers());
    if (description.type == "BLOCK_RECORD" && !context_.hasMarkers()) {
        return {};
    }
    head(description.type, record, description.type == "DIMSTYLE" ? dimStyleHandle : 5);
    owner(record.ownerId());
    groups(description, 0);
    tableExtras(record);
    xdata(record);
    return writer_.take();
}

void RecordWriter::blockMark(std::string_view type, std::string_view groupMarker,
                             const AcDbBlockTableRecord& record) {
    writer_.plain(0, type);
    freshHandle();
    owner(record.objectId());
    marker("AcDbEntity");
    writer_.plain(8, "0");
    marker(groupMarker);
}

std::string RecordWriter::block(const AcDbBlockTableRecord& record) {
    const RecordDescription begin = describeBlockBegin(record);
    blockMark("BLOCK", "AcDbBlockBegin", record);
    writer_.fields(begin.groups[1].fields);
    writer_.plain(1, "");
    std::string text = writer_.take();
    for (const AcDbObjectId id : record.entityIds()) {
        const auto* const inside = host_db::peek<AcDbEntity>(id);
        if (inside != nullptr) {
            text += entity(*inside);
        }
    }
    blockMark("ENDBLK", "AcDbBlockEnd", record);
    return text + writer_.take();
}

void RecordWriter::requireObjects(const AcDbObject& object, const char* kind) const {
    if (!context_.hasMarkers()) {
        throw SaveFailure("a drawing of version R12 holds no " + std::string(kind) + ", found " +
                          nameForMessage(object));
    }
}

std::string RecordWriter::dictionary(const AcDbDictionary& dictionary) {
    constexpr int softEntry = 350;
    constexpr int hardEntry = 360;
    requireObjects(dictionary, "dictionaries");
    // The dictionary that extends an object owns what it holds.
    const bool owns = AcDbDictionary::cast(context_.objectOf(dictionary.ownerId())) == nullptr;
    head("DICTIONARY", dictionary);
    owner(dictionary.ownerId());
    marker("AcDbDictionary");
    if (owns) {
        writer_.integer(280, 1);
    }
    writer_.integer(281, 1);
    for (const AcDbDictionary::Entry& entry : dictionary.entries()) {
        if (entry.id.isValid()) {
            writer_.text(3, entry.name.GetString());
            writer_.handle(owns ? hardEntry : softEntry, context_.handleOf(entry.id));
        }
    }
    xdata(dictionary);
    return writer_.take();
}

std::string RecordWriter::xrecord(const AcDbXrecord& record) {
    requireObjects(record, "xrecords");
    head("XRECORD", record);
    owner(record.ownerId());
    marker("AcDbXrecord");
    writer_.integer(280, 1);
    for (const host_db::ResultItem& item : record.items()) {
        context_.items().write(item, writer_);
    }
    xdata(record);
    return writer_.take();
}

} // namespace host_dxf
