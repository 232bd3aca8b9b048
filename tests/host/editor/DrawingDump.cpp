#include "host/editor/DrawingDump.h"

#include "database/AcDb2dPolyline.h"
#include "database/AcDbArc.h"
#include "database/AcDbAttribute.h"
#include "database/AcDbBlockReference.h"
#include "database/AcDbCircle.h"
#include "database/AcDbLine.h"
#include "database/AcDbObjectIterator.h"
#include "database/AcDbPolyline.h"
#include "database/AcDbText.h"
#include "database/AcDbXrecord.h"
#include "platform/Encoding.h"

#include <memory>
#include <sstream>

namespace {

std::string utf8(const wchar_t* text) {
    return host_text::toUtf8(text);
}

std::string handleOf(AcDbObjectId id) {
    ACHAR handle[17];
    id.handle().getIntoAsciiBuffer(handle);
    return utf8(handle);
}

void put(std::ostream& out, const AcGePoint3d& point) {
    out << " (" << point.x << ',' << point.y << ',' << point.z << ')';
}

void putItems(std::ostream& out, resbuf* chain) {
    for (const host_db::ResultItem& item : host_db::itemsOf(chain)) {
        out << " [" << item.type << ':';
        if (const auto* text = std::get_if<CString>(&item.value)) {
            out << utf8(*text);
        } else if (const auto* real = std::get_if<double>(&item.value)) {
            out << *real;
        } else if (const auto* number = std::get_if<std::int64_t>(&item.value)) {
            out << *number;
        }
        out << ']';
    }
    acutRelRb(chain);
}

void putPolyline(std::ostream& out, const AcDbPolyline& polyline) {
    out << " closed=" << polyline.isClosed() << " z=" << polyline.elevation();
    for (unsigned int i = 0; i < polyline.numVerts(); ++i) {
        AcGePoint3d point;
        double bulge = 0.0;
        double start = 0.0;
        double end = 0.0;
        polyline.getPointAt(i, point);
        polyline.getBulgeAt(i, bulge);
        polyline.getWidthsAt(i, start, end);
        put(out, point);
        out << 'b' << bulge << 'w' << start << '/' << end;
    }
}

void putGeometry(std::ostream& out, const AcDbEntity& entity) {
    if (const auto* line = AcDbLine::cast(&entity)) {
        put(out, line->startPoint());
        put(out, line->endPoint());
    } else if (const auto* circle = AcDbCircle::cast(&entity)) {
        put(out, circle->center());
        out << " r=" << circle->radius();
    } else if (const auto* arc = AcDbArc::cast(&entity)) {
        put(out, arc->center());
        out << " r=" << arc->radius() << " a=" << arc->startAngle() << ".." << arc->endAngle();
    } else if (const auto* polyline = AcDbPolyline::cast(&entity)) {
        putPolyline(out, *polyline);
    } else if (const auto* text = AcDbText::cast(&entity)) {
        put(out, text->position());
        out << " '" << utf8(text->textStringConst()) << '\'';
    } else if (const auto* reference = AcDbBlockReference::cast(&entity)) {
        put(out, reference->position());
        out << " block=" << handleOf(reference->blockTableRecord()) << " attributes";
        const std::unique_ptr<AcDbObjectIterator> attributes(reference->attributeIterator());
        for (; !attributes->done(); attributes->step()) {
            out << ' ' << handleOf(attributes->objectId());
        }
    }
}

void putEntity(std::ostream& out, const AcDbEntity& entity) {
    out << " layer=" << handleOf(entity.layerId()) << " type=" << handleOf(entity.linetypeId())
        << " colour=" << entity.colorIndex() << " shown=" << entity.visibility();
    putGeometry(out, entity);
}

void putIds(std::ostream& out, const std::vector<AcDbObjectId>& ids) {
    for (const AcDbObjectId id : ids) {
        out << ' ' << handleOf(id);
    }
}

void putContents(std::ostream& out, const AcDbObject& object) {
    if (const auto* entity = AcDbEntity::cast(&object)) {
        putEntity(out, *entity);
    } else if (const auto* table = AcDbSymbolTable::cast(&object)) {
        putIds(out, table->recordIds());
        for (const AcDbObjectId id : table->recordIds()) {
            const auto* record = host_db::peek<AcDbSymbolTableRecord>(id);
            out << (record != nullptr && table->find(record->name()) == id ? " found" : " lost");
        }
    } else if (const auto* dictionary = AcDbDictionary::cast(&object)) {
        for (const AcDbDictionary::Entry& entry : dictionary->entries()) {
            out << ' ' << utf8(entry.name) << '=' << handleOf(entry.id);
        }
    } else if (const auto* record = AcDbXrecord::cast(&object)) {
        putItems(out, host_db::chainOf(record->items()));
    }
    if (const auto* record = AcDbSymbolTableRecord::cast(&object)) {
        out << " name=" << utf8(record->name()) << " flags=" << record->flags();
    }
    if (const auto* layer = AcDbLayerTableRecord::cast(&object)) {
        out << " off=" << layer->isOff() << " colour=" << layer->colorIndex();
    }
    if (const auto* block = AcDbBlockTableRecord::cast(&object)) {
        put(out, block->origin());
        putIds(out, block->entityIds());
    }
}

} // namespace

std::vector<std::string> dumpOf(const AcDbDatabase& database) {
    std::vector<std::string> lines;
    for (std::uint64_t place = 0; place < database.objects().size(); ++place) {
        const AcDbObject* object = database.objects().at(place);
        if (object == nullptr) {
            continue;
        }
        std::ostringstream out;
        out.precision(17);
        out << handleOf(object->objectId()) << ' ' << utf8(object->isA()->name())
            << " owner=" << handleOf(object->ownerId()) << " erased=" << object->isErased()
            << " modified=" << object->isModified() << " new=" << object->isNewObject()
            << " own=" << (object->ownXdata() != nullptr) << " set=" << object->applicationSet()
            << " dictionary=" << handleOf(object->extensionDictionary());
        putContents(out, *object);
        putItems(out, object->xData());
        lines.push_back(out.str());
    }
    std::ostringstream rest;
    rest << "next=" << database.handseed().value() << " layer=" << handleOf(database.clayer());
    lines.push_back(rest.str());
    return lines;
}
