#pragma once

#include "database/AcadErrorStatus.h"
#include "database/AcDbHandle.h"
#include "database/AcDbObjectId.h"
#include "database/AcDbTypes.h"
#include "database/AcRxObject.h"
#include "database/ResultItems.h"
#include "database/SourceRange.h"

#include <cstdint>
#include <memory>

class AcDbDatabase;

namespace host_db {
class DatabaseBuilder;
class UndoJournal;
struct OpenObjects;
} // namespace host_db

/// An object that can live in a database: identity, owner, open state, extended data.
///
/// An object in a database is used between opening and closing it (acdbOpenAcDbObject, close): any
/// number of readers or one writer. Setters of an object in a database that is not open for write
/// give eNotOpenForWrite and change nothing. An object outside a database has no open state and
/// belongs to whoever made it.
class AcDbObject : public AcRxObject {
    ACRX_DECLARE_MEMBERS(AcDbObject);

public:
    AcDbObject& operator=(const AcDbObject&) = delete;
    ~AcDbObject() override;

    /// Null while the object is in no database.
    AcDbObjectId objectId() const { return id_; }
    AcDbObjectId id() const { return id_; }
    /// The object that holds this one: a block table record for an entity, a block reference for an
    /// attribute, a table for a record, a dictionary for its entries.
    AcDbObjectId ownerId() const { return ownerId_; }
    void getAcDbHandle(AcDbHandle& handle) const;
    /// nullptr while the object is in no database.
    AcDbDatabase* database() const;

    /// Ends one open. eInvalidOpenState when the object is not open; eOk for an object outside a
    /// database.
    Acad::ErrorStatus close();
    /// Turns the only read open into a write open; eWasOpenForRead when there are more readers.
    Acad::ErrorStatus upgradeOpen();
    /// Turns the write open into a read open; eWasOpenForRead when it is one already.
    Acad::ErrorStatus downgradeOpen();
    /// Marks the object erased, or brings it back with `erasing` false. Needs it open for write. An
    /// erased object keeps its id and handle; opening it gives eWasErased.
    virtual Acad::ErrorStatus erase(bool erasing = true);

    /// Puts `object`, which is in no database, into this one's place: id, handle, owner and place
    /// in the drawing become its own, and on request the extended data and the extension
    /// dictionary. This one needs to be open for write; afterwards `object` is, and this one is in
    /// no database and the caller's to delete. eAlreadyInDb, eNullObjectPointer.
    Acad::ErrorStatus handOverTo(AcDbObject* object, Adesk::Boolean keepXdata = Adesk::kTrue,
                                 Adesk::Boolean keepExtensionDictionary = Adesk::kTrue);

    bool isErased() const { return erased_; }
    bool isReadEnabled() const { return readers_ > 0 || openForWrite_; }
    bool isWriteEnabled() const { return openForWrite_ || id_.isNull(); }
    /// Changed since it was read from its file, or made in this process.
    bool isModified() const { return modified_; }
    /// Made in this process and not read from a file.
    bool isNewObject() const { return source_.isEmpty(); }

    /// The dictionary attached to the object; null when there is none.
    AcDbObjectId extensionDictionary() const;
    /// Attaches an empty dictionary. eAlreadyInDb when there is one, eNotApplicable in R12.
    Acad::ErrorStatus createExtensionDictionary();

    /// The extended data: a 1001 item with the application's name, then its items; of all
    /// applications in their order, or of `application` alone (without regard to case; of one that
    /// stands twice the first section). The chain belongs to the caller (acutRelRb); nullptr when
    /// there is none. Cost: decodes the object's extended data from the file's bytes each time.
    resbuf* xData(const ACHAR* application = nullptr) const;

    /// Replaces the data of each application that the chain (copied) names; a name alone removes
    /// them. Texts may be longer than 255 characters. Nothing changes on eInvalidResBuf (no 1001 in
    /// front, a code outside 1000 to 1071, braces of 1002 not in pairs within one application),
    /// eRegappIdNotFound (not registered in the object's database), eXdataSizeExceeded (the
    /// object's data above 16383 bytes) and eNotOpenForWrite.
    virtual Acad::ErrorStatus setXData(const resbuf* chain);

    /// The type name in drawing files, for instance L"LINE"; L"" for what no file holds.
    virtual const ACHAR* dxfTypeName() const;

    /// Where the object was read from; an empty range for one made in this process.
    const host_dxf::SourceRange& sourceRange() const { return source_; }

    /// The record that the object was copied from, straight or through other copies; one with an
    /// empty range for what is no copy of an object of a file. What the host does not model of a
    /// copy stands there alone.
    host_dxf::CopyOrigin copyOrigin() const;
    /// Makes the object count as a copy of `other`, which may be of another class.
    void takeCopyOrigin(const AcDbObject& other);
    /// The record of the object into whose place this one came by handOverTo; else empty.
    host_dxf::SourceRange replacedRange() const;

    /// Whether the object carries data of the application with this number (see
    /// host_db::XdataApplications). Constant time for objects in a database; no text is decoded.
    bool hasXdataOf(std::uint32_t application) const;
    /// Number of the set of applications whose data it carries, 0 for none.
    std::uint32_t applicationSet() const { return applicationSet_; }
    /// The extended data when they were set in this process, nullptr while they stand in the file.
    const host_db::ResultItems* ownXdata() const { return ownXdata_ ? &extra_->xdata : nullptr; }

protected:
    AcDbObject() = default;
    /// Copies what belongs to the object itself: extended data, not identity, owner or open state.
    /// Where the record stands that it was read from goes along as the copy's origin.
    AcDbObject(const AcDbObject& other);

    /// To be asked by each setter before it writes: eNotOpenForWrite when the object may not be
    /// changed now, else marks it changed.
    Acad::ErrorStatus prepareWrite();

    /// Sets one field under prepareWrite.
    template<typename Field, typename Value>
    Acad::ErrorStatus change(Field& field, const Value& value) {
        const Acad::ErrorStatus status = prepareWrite();
        if (status == Acad::eOk) {
            field = value;
        }
        return status;
    }

    /// Called once when the object has entered a database, with its id and owner set.
    virtual void onAdded(AcDbDatabase& database);

    /// A copy of the object's own fields, for taking changes back. Lists of what the object owns
    /// may be left out of it.
    virtual std::unique_ptr<AcDbObject> savedCopy() const;
    /// This copy has taken the place of `changed` again: takes over the lists it lacks.
    virtual void takeLists(AcDbObject& changed);
    /// An object that entered the database as this one's leaves it again.
    virtual void disown(const AcDbObject& owned);

private:
    friend class AcDbDatabase;
    friend class host_db::DatabaseBuilder;
    friend class host_db::UndoJournal;
    friend struct host_db::OpenObjects;

    /// What few objects have.
    struct Extra {
        AcDbObjectId extensionDictionary;
        host_db::ResultItems xdata;
        host_dxf::CopyOrigin copyOrigin;
        host_dxf::SourceRange replaced;
    };

    Extra& extra();
    host_db::ResultItems readXdata() const;
    void storeXdata(host_db::ResultItems items);

    AcDbObjectId id_;
    AcDbObjectId ownerId_;
    host_dxf::SourceRange source_;
    std::unique_ptr<Extra> extra_;
    std::uint32_t applicationSet_ = 0;
    std::uint16_t readers_ = 0;
    bool openForWrite_ : 1 = false;
    bool erased_ : 1 = false;
    bool modified_ : 1 = true;
    bool ownXdata_ : 1 = false;
};
