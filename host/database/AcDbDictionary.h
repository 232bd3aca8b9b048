#pragma once

#include "database/AcDbObject.h"
#include "database/AcDbObjectIterator.h"

#include <string>
#include <unordered_map>
#include <vector>

class AcDbDictionaryIterator;

/// A map from names to objects, in the order of entering. Names are looked up without regard to
/// case; an entry whose object was erased is not found. A dictionary owns the entries whose owner
/// it is, and those that have none.
class AcDbDictionary : public AcDbObject {
    ACRX_DECLARE_MEMBERS(AcDbDictionary);

public:
    /// An entry of the dictionary.
    struct Entry {
        CString name;
        AcDbObjectId id;
    };

    AcDbDictionary() = default;

    /// eKeyNotFound leaves `id` as it was.
    Acad::ErrorStatus getAt(const ACHAR* name, AcDbObjectId& id) const;
    /// Finds and opens the entry; `object` is nullptr on failure.
    Acad::ErrorStatus getAt(const ACHAR* name, AcDbObject*& object, AcDb::OpenMode mode) const;
    bool has(const ACHAR* name) const;
    bool has(AcDbObjectId id) const;
    /// The name of an entry; eKeyNotFound.
    Acad::ErrorStatus nameAt(AcDbObjectId id, CString& name) const;
    Adesk::UInt32 numEntries() const;
    /// Enters an object under a name; one in no database is taken and stays open for write for the
    /// caller to close. A former entry of the name is erased and, brought back, is named "*A1" or
    /// so. Needs the dictionary open for write in a database, eNotApplicable where its version
    /// (R12) holds none; the object stays the caller's on failure.
    Acad::ErrorStatus setAt(const ACHAR* name, AcDbObject* object, AcDbObjectId& id);
    /// Takes the entry out; the object stays in the database. eKeyNotFound.
    Acad::ErrorStatus remove(const ACHAR* name);
    Acad::ErrorStatus remove(AcDbObjectId id);
    /// Erases what the dictionary owns along with it, dictionaries below it with all that is
    /// theirs; an owned object that somebody has open stays. With `erasing` false what was erased
    /// along comes back with it. eCannotBeErasedByCaller for the drawing's named objects
    /// dictionary.
    Acad::ErrorStatus erase(bool erasing = true) override;
    /// A walk over the entries there are now; deleted by the caller.
    AcDbDictionaryIterator* newIterator() const;

    /// The entries in order, those of erased objects included.
    const std::vector<Entry>& entries() const { return entries_; }

protected:
    AcDbDictionary(const AcDbDictionary&) = default;
    std::unique_ptr<AcDbObject> savedCopy() const override;

private:
    friend class host_db::DatabaseBuilder;

    AcDbObjectId find(const ACHAR* name) const;
    void enter(const ACHAR* name, AcDbObjectId id);
    void drop(std::size_t index);
    bool owns(AcDbObjectId id) const;
    void eraseOwned(std::vector<AcDbDictionary*>& below);
    void bringBackOwned(std::vector<AcDbDictionary*>& below);

    std::vector<Entry> entries_;
    std::unordered_map<std::wstring, std::size_t> byName_;
    std::vector<AcDbObjectId> erasedAlong_;
};

/// Walks the entries of a dictionary as they were when the walk began.
class AcDbDictionaryIterator {
public:
    explicit AcDbDictionaryIterator(std::vector<AcDbDictionary::Entry> entries)
        : entries_(std::move(entries)) {}

    bool done() const { return index_ >= entries_.size(); }
    /// Goes on; false past the last entry.
    bool next();
    /// Not to be asked once done.
    const ACHAR* name() const { return entries_[index_].name; }
    AcDbObjectId objectId() const { return entries_[index_].id; }
    Acad::ErrorStatus getObject(AcDbObject*& object, AcDb::OpenMode mode = AcDb::kForRead) const;

private:
    std::vector<AcDbDictionary::Entry> entries_;
    std::size_t index_ = 0;
};
