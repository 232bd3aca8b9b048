#pragma once

#include "database/AcDbBlockTableRecord.h"
#include "database/AcDbDictionary.h"
#include "database/AcDbObjectId.h"
#include "database/DrawingSource.h"
#include "database/ObjectTable.h"
#include "database/SymbolTables.h"
#include "database/XdataApplications.h"

#include <cstdint>
#include <memory>
#include <vector>

namespace host_db {
class BlockShapes;
class UndoJournal;
} // namespace host_db

/// One drawing: its objects, symbol tables, spaces and named objects dictionary.
///
/// A database is used on one thread. Deleting it deletes its objects; ids into it stay safe and
/// open nothing any more.
class AcDbDatabase {
public:
    /// With `defaults` an empty drawing: the six tables, layer 0, the linetypes ByBlock, ByLayer
    /// and Continuous, style and dimension style Standard, application ACAD, model space, one paper
    /// space, the named objects dictionary. Without, the tables, the named objects dictionary and
    /// nothing in them, for a reader to fill.
    /// Whether it is shown in a document, `noDocument`, is of no account.
    explicit AcDbDatabase(bool defaults = true, bool noDocument = true);
    AcDbDatabase(const AcDbDatabase&) = delete;
    AcDbDatabase& operator=(const AcDbDatabase&) = delete;
    ~AcDbDatabase();

    AcDbObjectId blockTableId() const { return blockTable_; }
    AcDbObjectId layerTableId() const { return layerTable_; }
    AcDbObjectId linetypeTableId() const { return linetypeTable_; }
    AcDbObjectId textStyleTableId() const { return textStyleTable_; }
    AcDbObjectId dimStyleTableId() const { return dimStyleTable_; }
    AcDbObjectId regAppTableId() const { return regAppTable_; }
    AcDbObjectId namedObjectsDictionaryId() const { return namedObjects_; }
    /// Model space; null only while a reader has not given it.
    AcDbObjectId modelSpaceId() const;
    /// The space that new entities go to: model space.
    AcDbObjectId currentSpaceId() const { return modelSpaceId(); }
    /// Model space first, then the layouts' spaces in their file order.
    const std::vector<AcDbObjectId>& spaceIds() const { return spaces_; }
    /// Layer 0, the current layer unless the drawing names another.
    AcDbObjectId layerZero() const;
    AcDbObjectId clayer() const;
    Acad::ErrorStatus setClayer(AcDbObjectId layer);
    AcDbObjectId byLayerLinetype() const;
    /// The text style Standard, null when the drawing has none.
    AcDbObjectId textstyle() const;

    /// Opens a table; it must be closed.
    Acad::ErrorStatus getSymbolTable(AcDbBlockTable*& table, AcDb::OpenMode mode) const;
    Acad::ErrorStatus getSymbolTable(AcDbLayerTable*& table, AcDb::OpenMode mode) const;
    Acad::ErrorStatus getSymbolTable(AcDbLinetypeTable*& table, AcDb::OpenMode mode) const;
    Acad::ErrorStatus getSymbolTable(AcDbTextStyleTable*& table, AcDb::OpenMode mode) const;
    Acad::ErrorStatus getSymbolTable(AcDbDimStyleTable*& table, AcDb::OpenMode mode) const;
    Acad::ErrorStatus getSymbolTable(AcDbRegAppTable*& table, AcDb::OpenMode mode) const;
    Acad::ErrorStatus getBlockTable(AcDbBlockTable*& table, AcDb::OpenMode mode) const;
    Acad::ErrorStatus getLayerTable(AcDbLayerTable*& table, AcDb::OpenMode mode) const;
    Acad::ErrorStatus getLinetypeTable(AcDbLinetypeTable*& table, AcDb::OpenMode mode) const;
    Acad::ErrorStatus getTextStyleTable(AcDbTextStyleTable*& table, AcDb::OpenMode mode) const;
    Acad::ErrorStatus getDimStyleTable(AcDbDimStyleTable*& table, AcDb::OpenMode mode) const;
    Acad::ErrorStatus getRegAppTable(AcDbRegAppTable*& table, AcDb::OpenMode mode) const;
    Acad::ErrorStatus getNamedObjectsDictionary(AcDbDictionary*& dictionary,
                                                AcDb::OpenMode mode) const;

    /// The id of a handle. With `create` false, eUnknownHandle for one that no object has.
    Acad::ErrorStatus getAcDbObjectId(AcDbObjectId& id, bool create, const AcDbHandle& handle);
    /// The next handle to be given to a new object.
    AcDbHandle handseed() const { return AcDbHandle(handleSeed_); }

    /// Takes an object that is in no database, gives it a handle and an id and opens it for write.
    /// Entities are better added through AcDbBlockTableRecord, records through their table. The
    /// owner is set as given. eAlreadyInDb, eNullObjectPointer; the object stays the caller's then.
    Acad::ErrorStatus addAcDbObject(AcDbObjectId& id, AcDbObject* object,
                                    AcDbObjectId owner = AcDbObjectId::kNull);

    /// Registers an application for extended data; no error when it is registered already.
    /// eInvalidInput for an empty name, eLockViolation for a new one while another has locked the
    /// drawing.
    Acad::ErrorStatus registerApplication(const ACHAR* name);

    /// Loads the linetype `name` (in any case) from a file of linetypes into the table, in the
    /// file's spelling. The table must not be open. A file named without a path is sought in the
    /// support folders, see host::findSupportFile; host_db::findLinetype says what a definition
    /// looks like. A text in the pattern needs its text style in the drawing. The file of a shape
    /// is sought like the other one, its ending .shx may be left out, and a nameless record of the
    /// text style table stands for it, one for each file; that table must not be open then.
    /// eInvalidInput without a name or a file or for a malformed definition, eDuplicateKey when the
    /// table has the name already, eFileNotFound also for a shape that its file lacks,
    /// eFileAccessErr, eKeyNotFound when the file does not define the name, eInvalidKey for a
    /// missing text style, or the status of opening a table for write; the drawing is unchanged
    /// then. Cost: reads each file once, a shape file once for each shape.
    Acad::ErrorStatus loadLineTypeFile(const ACHAR* name, const ACHAR* file);

    /// The journal by which changes are taken back, kept from the first call on.
    host_db::UndoJournal& undoJournal();
    /// While another has locked the drawing, nothing of it can be opened for write.
    bool isWriteBlocked() const { return writeBlocked_; }
    void setWriteBlocked(bool blocked) { writeBlocked_ = blocked; }

    /// The file behind the drawing, nullptr for one made in this process.
    const host_db::DrawingSource* source() const { return source_.get(); }
    const host_db::XdataApplications& applications() const { return applications_; }
    const host_db::ObjectTable& objects() const { return objects_; }
    /// Counts every change of an object, so that what was derived from the drawing can be kept
    /// until it is stale.
    std::uint64_t revision() const { return revision_; }
    /// What is remembered of the block definitions.
    host_db::BlockShapes& blockShapes() const;
    /// Serial number of the database in this process, above 0; never used twice.
    std::uint32_t serial() const { return serial_; }

private:
    friend class AcDbObject;
    friend class AcDbObjectId;
    friend class AcDbRegAppTableRecord;
    friend class host_db::DatabaseBuilder;
    friend class host_db::UndoJournal;
    friend struct host_db::OpenObjects;

    AcDbObjectId idAt(std::uint32_t place) const;
    void put(std::uint32_t place, std::unique_ptr<AcDbObject> object, AcDbObjectId owner);
    void replace(AcDbObjectId id, AcDbObject* object);
    void noteHandle(std::uint64_t handle);
    std::uint64_t newHandle();
    AcDbObjectId makeObject(std::unique_ptr<AcDbObject> object);

    std::uint32_t serial_;
    std::uint64_t handleSeed_ = 1;
    std::uint64_t revision_ = 0;
    std::size_t openCount_ = 0;
    bool complete_ = false;
    bool writeBlocked_ = false;
    host_db::XdataApplications applications_;
    std::unique_ptr<host_db::DrawingSource> source_;
    host_db::ObjectTable objects_;
    std::vector<AcDbObjectId> spaces_;
    AcDbObjectId blockTable_;
    AcDbObjectId layerTable_;
    AcDbObjectId linetypeTable_;
    AcDbObjectId textStyleTable_;
    AcDbObjectId dimStyleTable_;
    AcDbObjectId regAppTable_;
    AcDbObjectId namedObjects_;
    AcDbObjectId currentLayer_;
    std::unique_ptr<host_db::UndoJournal> journal_;
    mutable std::unique_ptr<host_db::BlockShapes> blockShapes_;
};
