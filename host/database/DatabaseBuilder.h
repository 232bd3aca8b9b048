#pragma once

#include "database/AcDbBlockReference.h"
#include "database/AcDbDatabase.h"
#include "database/AcDbXrecord.h"
#include "database/DrawingSource.h"

#include <cstdint>
#include <memory>
#include <span>

namespace host_db {

/// What a file says of any object.
struct ObjectHeader {
    /// Handle in the file; 0 takes a new one.
    std::uint64_t handle = 0;
    /// The object's bytes; an empty range marks it as made in this process.
    host_dxf::SourceRange source;
    /// Applications whose data it carries, from DatabaseBuilder::applicationSet.
    std::uint32_t applicationSet = 0;
    /// Its extension dictionary, null for none.
    AcDbObjectId extensionDictionary;
};

/// What a file says of any entity beside its geometry.
struct EntityHeader : ObjectHeader {
    /// Null becomes layer 0.
    AcDbObjectId layer;
    /// Null becomes ByLayer.
    AcDbObjectId linetype;
    /// 0 by block, 1 to 255, 256 by layer.
    Adesk::UInt16 color = 256;
    bool invisible = false;
};

/// Fills a database from a file, past the rules of opening and of setters: for readers of drawings
/// alone.
///
/// Make the database with `AcDbDatabase(false)`, wrap it, call setSource, then add what the file
/// holds in file order, and finish(). Objects are given away as they are, with their own fields set
/// through their setters; the builder enters them, closed and unmodified. Each adding operation
/// gives the null id when the handle is taken by another object (the object is deleted then): a
/// reader reports that as an error with its line.
///
/// The tables and the named objects dictionary exist from the start with handles of their own. Call
/// adoptTable and adoptNamedObjects with the file's handles before anything else takes those;
/// without the call (old drawings) they take new handles in finish().
///
/// Order of entities within a space or definition is the order of addEntity calls for that block.
class DatabaseBuilder {
public:
    /// The tables a file may name.
    enum class Table { Block, Layer, Linetype, TextStyle, DimStyle, RegApp };

    explicit DatabaseBuilder(AcDbDatabase& database) : database_(database) {}

    /// The database takes the source and keeps it as long as it lives.
    void setSource(std::unique_ptr<DrawingSource> source);
    /// The file's $HANDSEED; new handles are taken from here on, above every handle of the file in
    /// any case.
    void setHandleSeed(std::uint64_t seed);

    /// An object with this handle has been added or the handle was claimed.
    bool isTaken(std::uint64_t handle) const;
    /// Marks the handle of something that is no object of its own here (a vertex, an end mark, an
    /// entry of an unmodelled table) as used. False when it is taken or 0.
    bool claimHandle(std::uint64_t handle);
    /// The id that the object with this handle has or will have; opening it before the object is
    /// added fails. Null for 0.
    AcDbObjectId idForHandle(std::uint64_t handle);

    /// The number of an application, registered in the table when it is new (a name that the file's
    /// table lacks becomes a record without bytes).
    std::uint32_t application(const wchar_t* name);
    /// The set of these applications, to be put into ObjectHeader::applicationSet.
    std::uint32_t applicationSet(std::span<const std::uint32_t> applications);

    /// Gives a table, or the named objects dictionary, its handle and bytes. False when the handle
    /// is taken.
    bool adoptTable(Table table, const ObjectHeader& header);
    bool adoptNamedObjects(const ObjectHeader& header);

    /// Adds a record under its name (with the spelling of the file) and flags (group 70). Of two
    /// records of one name in a table the first is the one that is found. Null id when the handle
    /// is taken.
    AcDbObjectId addRecord(Table table, std::unique_ptr<AcDbSymbolTableRecord> record,
                           const wchar_t* name, int flags, const ObjectHeader& header);
    /// The record of a name in any case, null when there is none.
    AcDbObjectId findRecord(Table table, const wchar_t* name) const;
    /// The record of a name, made with the defaults of its kind when there is none: for entities
    /// that name a layer, linetype or style missing in the tables. Not for Block.
    AcDbObjectId ensureRecord(Table table, const wchar_t* name);

    /// A block definition without its base point yet; entities are added with addEntity.
    AcDbObjectId addBlock(const wchar_t* name, int flags, const ObjectHeader& header);
    /// The definition of a name, or a new one: for block sections without a record before them.
    AcDbObjectId ensureBlock(const wchar_t* name);
    void setBlockOrigin(AcDbObjectId block, const AcGePoint3d& origin);
    /// Names the definitions that are spaces: model space first, then the layouts' in their file
    /// order. finish() makes a model space and a paper space when none were named: definitions
    /// `*Model_Space` and `*Paper_Space` and further ones `*Paper_Space0`, ... count in table
    /// order.
    void setSpaces(std::span<const AcDbObjectId> blocks);
    /// The layout object of a space.
    void setLayout(AcDbObjectId block, AcDbObjectId layout);

    /// Adds an entity at the end of a block table record. Null id when the handle is taken.
    AcDbObjectId addEntity(AcDbObjectId block, std::unique_ptr<AcDbEntity> entity,
                           const EntityHeader& header);
    /// Adds an attribute at the end of a block reference.
    AcDbObjectId addAttribute(AcDbObjectId reference, std::unique_ptr<AcDbAttribute> attribute,
                              const EntityHeader& header);
    /// The end mark behind a reference's attributes.
    void setAttributesEnd(AcDbObjectId reference, const host_dxf::SourceRange& end);
    /// Widens the range of an object that was added with its first bytes only.
    void setSourceEnd(AcDbObjectId object, std::size_t end);

    /// Adds an object of the OBJECTS section: a dictionary, an xrecord, an unknown object.
    AcDbObjectId addObject(std::unique_ptr<AcDbObject> object, AcDbObjectId owner,
                           const ObjectHeader& header);
    /// Enters an object, there already or reserved by its handle, into a dictionary.
    void addDictionaryEntry(AcDbObjectId dictionary, const wchar_t* name, AcDbObjectId entry);
    /// The items of an xrecord that is still the reader's.
    static void setXrecordItems(AcDbXrecord& record, ResultItems items);

    /// The drawing's current layer.
    void setCurrentLayer(AcDbObjectId layer);

    /// Completes what the file left out: layer 0, ByLayer, ByBlock, Continuous, Standard, the
    /// spaces, handles of tables. To be called once, last.
    void finish();

private:
    AcDbObject* object(AcDbObjectId id) const;
    template<typename T>
    T* objectAs(AcDbObjectId id) const {
        return T::cast(object(id));
    }
    AcDbObjectId tableId(Table table) const;
    AcDbSymbolTable& tableOf(Table table) const;
    AcDbObjectId enter(std::unique_ptr<AcDbObject> object, AcDbObjectId owner,
                       const ObjectHeader& header);
    void dress(AcDbEntity& entity, const EntityHeader& header);
    bool adopt(AcDbObjectId& place, const ObjectHeader& header);
    void setHeader(AcDbObject& object, const ObjectHeader& header);
    AcDbObjectId makeRecord(Table table, const wchar_t* name);
    void makeStandardRecords();
    void findSpaces();
    void settleOwners();
    void settleHandles();

    AcDbDatabase& database_;
};

} // namespace host_db
