#pragma once

#include "dxf/ObjectEditor.h"
#include "dxf/RecordWriter.h"
#include "dxf/SaveContext.h"

#include <unordered_set>
#include <vector>

class AcDbSymbolTable;

namespace host_dxf {

/// Finds out how a drawing differs from the file it started from and makes the changes to the file:
///
/// 1. what was erased goes out of the file;
/// 2. records of tables, entities and objects that changed are brought up to date;
/// 3. new ones are written at the end of the table, space, definition or section they belong to;
/// 4. records that new and changed ones name, and that the file leaves unsaid, are added;
/// 5. the header's current layer and next handle follow.
class DrawingWriter {
public:
    explicit DrawingWriter(SaveContext& context)
        : context_(context), editor_(context), records_(context) {}

    /// The file after the changes. Throws SaveFailure. To be called once.
    std::string write();

private:
    void eraseGoneObjects();
    void findRenames();
    void writeTables();
    void writeTable(const AcDbSymbolTable& table);
    void addTableRecord(const AcDbSymbolTable& table, const AcDbSymbolTableRecord& record);
    void writeBlocks();
    void writeBlock(const AcDbBlockTableRecord& block);
    void writeEntity(const AcDbEntity& entity, const AcDbBlockTableRecord& block);
    void addEntity(const AcDbEntity& entity, const AcDbBlockTableRecord& block);
    void updateAttributesOf(const AcDbEntity& entity);
    void writeObjects();
    void writeObject(const AcDbObject& object);
    bool hasChanged(const AcDbObject& object) const;
    bool lostEntries(const AcDbObject& object) const;
    void update(const AcDbObject& object);
    void noteNew(const AcDbObject& object);
    void noteNames(const AcDbObject& object);
    void noteApplications(const AcDbObject& object);
    void need(AcDbObjectId record);
    /// As `need`, for a record that is pointed at by its handle.
    void needStanding(AcDbObjectId record);
    void addNeededRecords();
    void writeAdditions();
    void raiseCount(const FilePart& part, const AcDbSymbolTable& table);
    const AcDbSymbolTable* tableNamed(std::string_view name) const;
    std::string tableText(const AcDbSymbolTable& table, const std::string& name,
                          const std::string& body);
    void addToSection(const std::string& name, const std::string& body);

    SaveContext& context_;
    ObjectEditor editor_;
    RecordWriter records_;
    std::unordered_set<AcDbObjectId> touched_; ///< references that lost an attribute
    std::unordered_set<AcDbObjectId> needed_;
    std::vector<AcDbObjectId> neededInOrder_;
    std::unordered_set<AcDbObjectId>
        pointedAt_; ///< by handles, so that they must stand in the file
    bool recordsRenamed_ = false;
};

} // namespace host_dxf
