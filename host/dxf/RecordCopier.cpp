#include "dxf/RecordCopier.h"

#include "database/AcDbEntity.h"
#include "database/OpenObject.h"
#include "database/SymbolTables.h"
#include "dxf/DxfRecord.h"
#include "dxf/EntityDescription.h"
#include "dxf/GroupCode.h"
#include "dxf/RawRecord.h"
#include "dxf/RecordEditor.h"

namespace host_dxf {

namespace {

constexpr int paperSpaceCode = 67;
constexpr int layoutCode = 410;

/// An arc's record is a circle's with the angles behind.
bool isCutOut(const RecordDescription& before, const RecordDescription& now) {
    return before.type == "CIRCLE" && now.type == "ARC";
}

/// Soft and hard owners' groups.
bool isOwnershipCode(int code) {
    return code >= 350 && code <= 369;
}

/// The group 330 that stands before all markers; nullptr without one.
const DxfTag* ownerTag(const RawRecord& record) {
    constexpr int ownerCode = 330;
    for (const RawRecord::Group& group : record.groups) {
        if (group.part == RecordPart::Fields && group.tag.code == subclassMarker) {
            break;
        }
        if (group.part == RecordPart::Fields && group.tag.code == ownerCode) {
            return &group.tag;
        }
    }
    return nullptr;
}

} // namespace

RecordCopier::RecordCopier(SaveContext& context, const AcDbEntity& entity)
    : context_(context), entity_(entity), origin_(context.copyOriginOf(entity)),
      writer_(context.newWriter()) {
    if (origin_.isEmpty()) {
        return;
    }
    before_ = describeEntity(context.originals().entity(origin_));
    now_ = describeEntity(entity);
    if (before_.type != now_.type && !isCutOut(before_, now_)) {
        origin_ = {};
    }
}

std::size_t RecordCopier::standingVertices() const {
    return heavyVertexCount(context_.originals().entity(origin_));
}

/// The copy stands where the entity stood, with its handle, so that others still mean it.
bool RecordCopier::isInPlace() const {
    const SourceRange replaced = entity_.replacedRange();
    return !replaced.isEmpty() && replaced.begin == origin_.begin;
}

std::string RecordCopier::copied(const std::string& vertices) {
    const std::vector<SourceRange> records = recordsIn(context_.file(), origin_);
    const RawRecord raw(context_.file(), origin_);
    RecordEditor editor(context_.file(), raw, writer_, edits_);
    changeHead(editor, context_.handleOf(entity_.objectId()), entity_.extensionDictionary(),
               entity_.ownerId());
    changeFields(editor);
    const host_db::ResultItems* const xdata = entity_.ownXdata();
    changeXdata(editor, context_.items(), xdata == nullptr ? host_db::ResultItems() : *xdata);
    for (std::size_t i = 1; i < records.size(); ++i) {
        copyPart(records[i]);
    }
    edits_.insert(records.back().begin, vertices);
    const RawRecord last(context_.file(), records.back());
    if (context_.hasHandles()) {
        context_.noteNewHandle();
    }
    return edits_.applied(context_.file().bytes(), origin_.begin, last.end);
}

void RecordCopier::copyPart(const SourceRange& part) {
    const RawRecord raw(context_.file(), part);
    RecordEditor editor(context_.file(), raw, writer_, edits_);
    changeHead(editor, context_.newHandle(), {}, entity_.objectId());
}

void RecordCopier::changeHead(RecordEditor& editor, std::uint64_t handle, AcDbObjectId extension,
                              AcDbObjectId owner) {
    setHandle(editor, handle);
    const AcDbObject* const dictionary = context_.objectOf(extension);
    const bool lives = dictionary != nullptr && !context_.isGone(*dictionary);
    editor.setExtensionDictionary(lives ? extension.handle().value() : 0);
    if (!isInPlace()) {
        dropUnshared(editor);
    }
    if (setOwner(editor, owner)) {
        setSpace(editor);
    }
}

void RecordCopier::setHandle(RecordEditor& editor, std::uint64_t handle) {
    constexpr int handleCode = 5;
    if (handle != 0) {
        editor.set({handleCode, HandleValue{handle}}, editor.record().bodyBegin);
    } else {
        editor.dropFields(handleCode);
    }
}

// What an object reacts to or owns knows of that one object alone.
void RecordCopier::dropUnshared(RecordEditor& editor) {
    bool reacts = false;
    for (const RawRecord::Group& group : editor.record().groups) {
        if (group.part == RecordPart::Xdata || group.part == RecordPart::Embedded) {
            continue;
        }
        const bool inBracket = group.part == RecordPart::Bracket;
        const bool opens =
            inBracket && group.tag.code == bracketCode && group.tag.text.starts_with('{');
        reacts = inBracket && (opens ? group.tag.text == "{ACAD_REACTORS" : reacts);
        if (reacts || (isOwnershipCode(group.tag.code) && !group.inExtensionDictionary)) {
            editor.drop(group.tag);
        }
    }
}

/// True when the record named another owner before, or none.
bool RecordCopier::setOwner(RecordEditor& editor, AcDbObjectId owner) {
    const std::uint64_t handle = context_.handleOf(owner);
    const DxfTag* const standing = ownerTag(editor.record());
    if (standing == nullptr && context_.hasOwners() && handle != 0) {
        editor.writer().handle(330, handle);
        editor.insert(editor.headEnd(), editor.writer().take());
    } else if (standing != nullptr && handle == 0) {
        editor.drop(*standing);
    } else if (standing != nullptr && handleOf(*standing) != handle) {
        overwriteGroup(context_.file(), *standing, {330, HandleValue{handle}}, editor.writer(),
                       edits_);
    } else if (standing != nullptr) {
        return false;
    }
    return true;
}

/// The space of an entity outside of a BLOCK; a layout's name goes, as the owner stands for it.
void RecordCopier::setSpace(RecordEditor& editor) {
    const DxfTag* const marker = editor.record().marker("AcDbEntity");
    const std::size_t place = marker == nullptr ? editor.headEnd() : marker->end;
    editor.dropFields(layoutCode);
    if (isInMainPaperSpace(entity_)) {
        editor.set({paperSpaceCode, std::int64_t{1}}, place);
    } else {
        editor.dropFields(paperSpaceCode);
    }
}

void RecordCopier::changeFields(RecordEditor& editor) {
    editor.change(before_, now_);
    if (!isCutOut(before_, now_)) {
        return;
    }
    const RawRecord& record = editor.record();
    writer_.plain(0, now_.type);
    edits_.replace(record.begin, record.bodyBegin, writer_.take());
    for (std::size_t g = before_.groups.size(); g < now_.groups.size(); ++g) {
        if (context_.hasMarkers()) {
            writer_.plain(subclassMarker, now_.groups[g].marker);
        }
        writer_.fields(now_.groups[g].fields);
    }
    editor.insert(editor.fieldsEnd(), writer_.take());
}

} // namespace host_dxf
