#pragma once

#include "database/AcDbObject.h"
#include "database/AcDbSymbolTableRecord.h"

#include <string>
#include <unordered_map>
#include <vector>

class AcDbSymbolTableIterator;

/// A table of named records in the order in which they were added. Names are looked up without
/// regard to case and read back in the record's own spelling. Erased records are not found.
class AcDbSymbolTable : public AcDbObject {
    ACRX_DECLARE_MEMBERS(AcDbSymbolTable);

public:
    AcDbSymbolTable() = default;

    bool has(const ACHAR* name) const { return !find(name).isNull(); }
    bool has(AcDbObjectId id) const;
    /// eKeyNotFound leaves `id` as it was. Records without a name are never found by it.
    Acad::ErrorStatus getAt(const ACHAR* name, AcDbObjectId& id, bool getErased = false) const;
    /// Finds and opens the record; `record` is nullptr on failure.
    Acad::ErrorStatus getAt(const ACHAR* name, AcDbSymbolTableRecord*& record, AcDb::OpenMode mode,
                            bool openErased = false) const;
    /// Adds a record that is in no database yet; the database takes it, and it stays open for write
    /// for the caller to close. The table must be open for write. eDuplicateKey, eInvalidInput
    /// without a name unless the record is one of a shape file; the record stays the caller's then.
    virtual Acad::ErrorStatus add(AcDbObjectId& id, AcDbSymbolTableRecord* record);
    Acad::ErrorStatus add(AcDbSymbolTableRecord* record);
    /// A walk over the records there are now; deleted by the caller.
    Acad::ErrorStatus newIterator(AcDbSymbolTableIterator*& iterator, bool atBeginning = true,
                                  bool skipDeleted = true) const;

    /// Ids of all records in order, erased ones included.
    const std::vector<AcDbObjectId>& recordIds() const { return records_; }
    /// The id under a name in any case, null when there is none; erased records do not count.
    AcDbObjectId find(const ACHAR* name) const;

protected:
    void takeLists(AcDbObject& changed) override;
    void disown(const AcDbObject& owned) override;

private:
    friend class AcDbSymbolTableRecord;
    friend class host_db::DatabaseBuilder;

    /// Enters a record that is in the database already.
    void enter(const AcDbSymbolTableRecord& record);
    void rename(const AcDbSymbolTableRecord& record, const CString& from, const ACHAR* to);

    std::vector<AcDbObjectId> records_;
    std::unordered_map<std::wstring, std::vector<AcDbObjectId>> byName_;
};
