#pragma once

#include "database/AcDbDictionary.h"
#include "dxf/RecordWriter.h"
#include "dxf/SaveContext.h"

#include <vector>

class AcDbBlockReference;
class AcDbBlockTableRecord;
class AcDbXrecord;

namespace host_dxf {

/// Brings the record of an object that stands in the file up to date, group by group.
class ObjectEditor {
public:
    explicit ObjectEditor(SaveContext& context) : context_(context), records_(context) {}

    /// Changes what differs between the object and its record. True when it names a layer, linetype
    /// or style now that it did not name before.
    bool update(const AcDbObject& object);
    /// Changes name and base point in the BLOCK record of a definition.
    void updateBlockBegin(const AcDbBlockTableRecord& record, const FilePart& part);
    /// Takes out the object's record and what belongs to it.
    void erase(const AcDbObject& object);
    /// Takes out the record of what stood in the object's place before it.
    void eraseReplaced(const AcDbObject& object);
    /// The name in the record of a symbol table is another one than the record's, case aside.
    bool isRenamed(const AcDbSymbolTableRecord& record);

private:
    bool updateEntity(RecordEditor& editor, const AcDbEntity& entity, const SourceRange& range);
    void updateVertices(const AcDbEntity& now, const AcDbEntity& before, const SourceRange& range);
    void updateAttributes(const AcDbBlockReference& reference);
    void updateDictionary(RecordEditor& editor, const AcDbDictionary& dictionary);
    std::vector<AcDbDictionary::Entry> livingEntries(const AcDbDictionary& dictionary) const;
    void updateEntry(RecordEditor& editor, const DxfTag& name, const DxfTag& entered,
                     std::vector<AcDbDictionary::Entry>& wanted);
    void updateXrecord(RecordEditor& editor, const AcDbXrecord& xrecord);
    void eraseRange(const SourceRange& range);

    SaveContext& context_;
    RecordWriter records_;
};

} // namespace host_dxf
