#include "dxf/ObjectEditor.h"

#include "database/AcDbBlockReference.h"
#include "database/AcDbDictionary.h"
#include "database/AcDbObjectIterator.h"
#include "database/AcDbXrecord.h"
#include "database/OpenObject.h"
#include "database/SymbolTables.h"
#include "dxf/DxfRecord.h"
#include "dxf/EntityDescription.h"
#include "dxf/EntityGeometry.h"
#include "dxf/RawRecord.h"
#include "dxf/TableDescription.h"
#include "dxf/TagCursor.h"
#include "platform/WideCharacters.h"

#include <algorithm>
#include <memory>

namespace host_dxf {

namespace {

/// An entry of a dictionary as its record has it.
struct StandingEntry {
    const DxfTag* name = nullptr;
    const DxfTag* object = nullptr;
};

std::vector<StandingEntry> standingEntries(const RawRecord& record) {
    std::vector<StandingEntry> entries;
    const DxfTag* name = nullptr;
    for (const RawRecord::Group& group : record.groups) {
        const int code = group.part == RecordPart::Fields ? group.tag.code : 0;
        if (code == 3) {
            name = &group.tag;
        } else if (name != nullptr && (code == 350 || code == 360)) {
            entries.push_back({name, &group.tag});
            name = nullptr;
        }
    }
    return entries;
}

bool isNamed(const AcDbDictionary::Entry& entry, const std::wstring& name) {
    return host_text::compareNoCase(entry.name, name.c_str()) == 0;
}

} // namespace

bool ObjectEditor::update(const AcDbObject& object) {
    const SourceRange range = context_.rangeOf(object);
    const RawRecord record(context_.file(), range);
    RecordEditor editor(context_.file(), record, context_.writer(), context_.edits());
    bool namesNew = false;
    if (const auto* const entity = AcDbEntity::cast(&object)) {
        namesNew = updateEntity(editor, *entity, range);
    } else if (const auto* const named = AcDbSymbolTableRecord::cast(&object)) {
        const bool lengthsAlone = !context_.hasMarkers();
        const auto before =
            describeTableRecord(context_.originals().tableRecord(range), lengthsAlone);
        const auto now = describeTableRecord(*named, lengthsAlone);
        namesNew = !sameNames(before, now);
        editor.change(before, now);
    } else if (const auto* const dictionary = AcDbDictionary::cast(&object)) {
        updateDictionary(editor, *dictionary);
    } else if (const auto* const xrecord = AcDbXrecord::cast(&object)) {
        updateXrecord(editor, *xrecord);
    }
    if (const host_db::ResultItems* const xdata = object.ownXdata()) {
        changeXdata(editor, context_.items(), *xdata);
    }
    const AcDbObject* const extension = context_.objectOf(object.extensionDictionary());
    if (extension != nullptr) {
        const bool gone = context_.isGone(*extension);
        editor.setExtensionDictionary(gone ? 0 : extension->objectId().handle().value());
    }
    return namesNew;
}

bool ObjectEditor::updateEntity(RecordEditor& editor, const AcDbEntity& entity,
                                const SourceRange& range) {
    const AcDbEntity& before = context_.originals().entity(range);
    const RecordDescription old = describeEntity(before);
    const RecordDescription now = describeEntity(entity);
    editor.change(old, now);
    updateVertices(entity, before, range);
    if (const auto* const reference = AcDbBlockReference::cast(&entity)) {
        updateAttributes(*reference);
    }
    return !sameNames(old, now);
}

// The interface adds vertices to a heavy polyline and changes or takes out none.
void ObjectEditor::updateVertices(const AcDbEntity& now, const AcDbEntity& before,
                                  const SourceRange& range) {
    const std::size_t standing = heavyVertexCount(before);
    if (heavyVertexCount(now) > standing) {
        const std::size_t end = recordsIn(context_.file(), range).back().begin;
        context_.edits().insert(end, records_.vertices(now, standing));
    }
}

void ObjectEditor::updateAttributes(const AcDbBlockReference& reference) {
    const std::unique_ptr<AcDbObjectIterator> attributes(reference.attributeIterator());
    const SourceRange end = reference.attributesEnd();
    const bool any = !attributes->done();
    std::string added;
    for (; !attributes->done(); attributes->step()) {
        const auto* const attribute = host_db::peek<AcDbEntity>(attributes->objectId());
        if (context_.isNew(*attribute)) {
            added += records_.attribute(*attribute);
        }
    }
    if (!end.isEmpty() && any) {
        context_.edits().insert(end.begin, std::move(added));
    } else if (!end.isEmpty()) {
        eraseRange(end);
    } else if (any) {
        context_.edits().insert(context_.rangeOf(reference).end,
                                added + records_.sequenceEnd(reference));
    }
}

std::vector<AcDbDictionary::Entry>
ObjectEditor::livingEntries(const AcDbDictionary& dictionary) const {
    std::vector<AcDbDictionary::Entry> living;
    for (const AcDbDictionary::Entry& entry : dictionary.entries()) {
        const AcDbObject* const object = context_.objectOf(entry.id);
        if (object == nullptr || !context_.isGone(*object)) {
            living.push_back(entry); // what the host knows nothing of is no business of its
        }
    }
    return living;
}

void ObjectEditor::updateEntry(RecordEditor& editor, const DxfTag& name, const DxfTag& entered,
                               std::vector<AcDbDictionary::Entry>& wanted) {
    const std::wstring decoded = context_.decoder().decode(name.text);
    const auto found = std::find_if(wanted.begin(), wanted.end(), [&decoded](const auto& entry) {
        return isNamed(entry, decoded);
    });
    if (found == wanted.end()) {
        if (!context_.isStandIn()) {
            editor.drop(name);
            editor.drop(entered);
        }
        return;
    }
    const std::uint64_t handle = found->id.handle().value();
    if (handle != handleOf(entered)) {
        overwriteGroup(context_.file(), entered, {entered.code, HandleValue{handle}},
                       context_.writer(), context_.edits());
    }
    wanted.erase(found);
}

void ObjectEditor::updateDictionary(RecordEditor& editor, const AcDbDictionary& dictionary) {
    std::vector<AcDbDictionary::Entry> missing = livingEntries(dictionary);
    std::size_t place = editor.fieldsEnd();
    int code = 350;
    for (const StandingEntry& standing : standingEntries(editor.record())) {
        place = standing.object->end;
        code = standing.object->code;
        updateEntry(editor, *standing.name, *standing.object, missing);
    }
    for (const AcDbDictionary::Entry& entry : missing) {
        if (entry.id.isValid()) {
            editor.writer().text(3, entry.name.GetString());
            editor.writer().handle(code, context_.handleOf(entry.id));
        }
    }
    editor.insert(place, editor.writer().take());
}

void ObjectEditor::updateXrecord(RecordEditor& editor, const AcDbXrecord& xrecord) {
    constexpr int cloningFlagCode = 280;
    const auto& groups = editor.record().groups;
    std::size_t first = 0;
    while (first < groups.size() && groups[first].part != RecordPart::XrecordData) {
        ++first;
    }
    std::size_t last = first;
    while (last < groups.size() && groups[last].part == RecordPart::XrecordData) {
        ++last;
    }
    const DxfTag* const marker = editor.record().marker("AcDbXrecord");
    std::size_t place = marker == nullptr ? editor.fieldsEnd() : marker->end;
    if (first < last && groups[first].tag.code == cloningFlagCode) {
        place = groups[first].tag.end;
        ++first;
    }
    changeItems(editor, context_.items(), first, last, place, xrecord.items());
}

void ObjectEditor::updateBlockBegin(const AcDbBlockTableRecord& record, const FilePart& part) {
    const RawRecord raw(context_.file(), part.range);
    const DxfTag* const name = raw.field(2);
    const auto coordinate = [&raw](int code) {
        const DxfTag* const tag = raw.field(code);
        return tag == nullptr ? 0.0 : tag->real;
    };
    AcDbBlockTableRecord before;
    before.setOrigin({coordinate(10), coordinate(20), coordinate(30)});
    const std::wstring standing = context_.decoder().decode(name->text);
    // A space keeps the name that old files have for it.
    const bool keepsName = record.isLayout();
    before.AcDbSymbolTableRecord::setName(keepsName ? record.name().GetString() : standing.c_str());
    RecordEditor editor(context_.file(), raw, context_.writer(), context_.edits());
    editor.change(describeBlockBegin(before), describeBlockBegin(record));
}

bool ObjectEditor::isRenamed(const AcDbSymbolTableRecord& record) {
    const SourceRange range = context_.rangeOf(record);
    return host_text::compareNoCase(context_.originals().tableRecord(range).name(),
                                    record.name()) != 0;
}

void ObjectEditor::eraseRange(const SourceRange& range) {
    constexpr int comment = 999;
    TagCursor cursor(context_.file(), range.begin, range.end, range.firstLine);
    std::size_t end = range.begin;
    for (DxfTag tag; cursor.nextUnparsed(tag);) {
        end = tag.code == comment ? end : tag.end;
    }
    context_.edits().erase(range.begin, end); // comments before the next record stay
}

void ObjectEditor::eraseReplaced(const AcDbObject& object) {
    if (!object.replacedRange().isEmpty()) {
        eraseRange(object.replacedRange());
    }
}

void ObjectEditor::erase(const AcDbObject& object) {
    const SourceRange range = context_.rangeOf(object);
    if (!range.isEmpty()) {
        eraseRange(range);
    }
    if (const auto* const reference = AcDbBlockReference::cast(&object)) {
        if (!reference->attributesEnd().isEmpty()) {
            eraseRange(reference->attributesEnd());
        }
    }
    if (AcDbBlockTableRecord::cast(&object) != nullptr) {
        if (const FilePart* const part = context_.blockPart(object.objectId())) {
            eraseRange(part->range);
        }
    }
}

} // namespace host_dxf
