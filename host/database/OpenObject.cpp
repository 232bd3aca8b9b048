#include "database/OpenObject.h"

#include "database/AcDbDatabase.h"
#include "database/AcDbEntity.h"
#include "database/AcDbHostApplicationServices.h"
#include "database/DatabaseRegistry.h"
#include "database/ObjectIdPacking.h"
#include "database/OpenObjects.h"
#include "platform/HostEvents.h"

namespace host_db {

std::size_t& OpenObjects::total() {
    static std::size_t count = 0;
    return count;
}

void OpenObjects::add(AcDbDatabase& database, bool opened) {
    if (opened) {
        ++total();
        ++database.openCount_;
    } else {
        --total();
        --database.openCount_;
    }
}

Acad::ErrorStatus OpenObjects::open(AcDbObject& object, AcDb::OpenMode mode, bool openErased) {
    if (object.erased_ && !openErased) {
        return Acad::eWasErased;
    }
    if (object.openForWrite_) {
        return Acad::eWasOpenForWrite;
    }
    AcDbDatabase& database = *homeOf(object.id_);
    if (mode == AcDb::kForWrite && database.isWriteBlocked()) {
        return Acad::eLockViolation;
    }
    if (mode == AcDb::kForWrite && object.readers_ > 0) {
        return Acad::eWasOpenForRead;
    }
    if (object.readers_ >= kMaxReaders) {
        return Acad::eAtMaxReaders;
    }
    if (mode == AcDb::kForWrite) {
        object.openForWrite_ = true;
    } else {
        ++object.readers_;
    }
    add(database, true);
    if (host::isListening()) {
        host::announce(
            eventLine(mode == AcDb::kForWrite ? L"open write" : L"open read", object.id_));
    }
    return Acad::eOk;
}

Acad::ErrorStatus OpenObjects::close(AcDbObject& object) {
    if (object.id_.isNull()) {
        return Acad::eOk;
    }
    if (object.openForWrite_) {
        object.openForWrite_ = false;
    } else if (object.readers_ > 0) {
        --object.readers_;
    } else {
        return Acad::eInvalidOpenState;
    }
    add(*homeOf(object.id_), false);
    if (host::isListening()) {
        host::announce(eventLine(L"close", object.id_));
    }
    return Acad::eOk;
}

Acad::ErrorStatus OpenObjects::upgrade(AcDbObject& object) {
    if (object.id_.isNull() || object.openForWrite_) {
        return object.id_.isNull() ? Acad::eOk : Acad::eWasOpenForWrite;
    }
    if (object.readers_ != 1) {
        return object.readers_ == 0 ? Acad::eInvalidOpenState : Acad::eWasOpenForRead;
    }
    if (object.database()->isWriteBlocked()) {
        return Acad::eLockViolation;
    }
    object.readers_ = 0;
    object.openForWrite_ = true;
    return Acad::eOk;
}

Acad::ErrorStatus OpenObjects::downgrade(AcDbObject& object) {
    if (object.id_.isNull()) {
        return Acad::eOk;
    }
    if (!object.openForWrite_) {
        return object.readers_ > 0 ? Acad::eWasOpenForRead : Acad::eInvalidOpenState;
    }
    object.openForWrite_ = false;
    object.readers_ = 1;
    return Acad::eOk;
}

void OpenObjects::forget(AcDbDatabase& database) {
    total() -= database.openCount_;
    database.openCount_ = 0;
}

std::size_t OpenObjects::count() {
    return total();
}

AcDbObject* OpenObjects::find(AcDbObjectId id) {
    AcDbDatabase* database = homeOf(id);
    return database == nullptr ? nullptr : database->objects_.at(placeOf(id.asOldId()));
}

std::wstring eventLine(const wchar_t* word, AcDbObjectId id) {
    ACHAR handle[17];
    id.handle().getIntoAsciiBuffer(handle);
    return std::wstring(word) + L" " + handle;
}

std::size_t openObjectCount() {
    return OpenObjects::count();
}

const AcDbObject* peekObject(AcDbObjectId id) {
    const AcDbObject* object = OpenObjects::find(id);
    return object == nullptr || object->isErased() ? nullptr : object;
}

} // namespace host_db

Acad::ErrorStatus acdbOpenAcDbObject(AcDbObject*& object, AcDbObjectId id, AcDb::OpenMode mode,
                                     bool openErased) {
    return acdbOpenAcDbObject(object, id, mode, nullptr, openErased);
}

Acad::ErrorStatus acdbOpenAcDbObject(AcDbObject*& object, AcDbObjectId id, AcDb::OpenMode mode,
                                     AcRxClass* desc, bool openErased) {
    object = nullptr;
    if (id.isNull()) {
        return Acad::eNullObjectId;
    }
    AcDbObject* found = host_db::OpenObjects::find(id);
    if (found == nullptr) {
        return Acad::eInvalidObjectId;
    }
    if (desc != nullptr && !found->isKindOf(desc)) {
        return Acad::eNotThatKindOfClass;
    }
    const Acad::ErrorStatus status = host_db::OpenObjects::open(*found, mode, openErased);
    object = status == Acad::eOk ? found : nullptr;
    return status;
}

Acad::ErrorStatus acdbOpenAcDbEntity(AcDbEntity*& entity, AcDbObjectId id, AcDb::OpenMode mode,
                                     bool openErased) {
    return acdbOpenObject(entity, id, mode, openErased);
}

Acad::ErrorStatus acdbGetObjectId(AcDbObjectId& id, const ads_name name) {
    const AcDbObjectId named = AcDbObjectId::fromOldId(name[0]);
    if (name[1] != 0 || host_db::OpenObjects::find(named) == nullptr) {
        return Acad::eInvalidAdsName;
    }
    id = named;
    return Acad::eOk;
}

Acad::ErrorStatus acdbGetAdsName(ads_name name, AcDbObjectId id) {
    name[0] = id.asOldId();
    name[1] = 0;
    return id.isNull() ? Acad::eNullObjectId : Acad::eOk;
}

int acdbHandEnt(const ACHAR* handle, ads_name name) {
    name[0] = 0;
    name[1] = 0;
    AcDbDatabase* database = acdbHostApplicationServices()->workingDatabase();
    AcDbObjectId id;
    if (database == nullptr ||
        database->getAcDbObjectId(id, false, AcDbHandle(handle)) != Acad::eOk || id.isErased()) {
        return RTERROR;
    }
    return acdbGetAdsName(name, id) == Acad::eOk ? RTNORM : RTERROR;
}
