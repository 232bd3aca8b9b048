#pragma once

#include "database/AcadErrorStatus.h"
#include "database/AcDbObject.h"
#include "database/AcDbObjectId.h"
#include "database/AcDbTypes.h"
#include "platform/PlatformTypes.h"

#include <cstddef>

/// Opens the object under `id`. On success `object` is set and must be closed; else it is nullptr.
///
/// eNullObjectId, eInvalidObjectId (no such object, or its database was closed), eWasErased (unless
/// `openErased`), eWasOpenForWrite (a writer has it), eWasOpenForRead (write asked, readers have
/// it), eLockViolation (write asked, another has locked the drawing), eAtMaxReaders (256).
/// kForNotify opens like kForRead.
Acad::ErrorStatus acdbOpenAcDbObject(AcDbObject*& object, AcDbObjectId id, AcDb::OpenMode mode,
                                     bool openErased = false);

/// The same for an object whose class must be `desc` or derive from it, else eNotThatKindOfClass
/// and nothing is opened. nullptr asks for no class.
Acad::ErrorStatus acdbOpenAcDbObject(AcDbObject*& object, AcDbObjectId id, AcDb::OpenMode mode,
                                     AcRxClass* desc, bool openErased);

/// The same for entities.
Acad::ErrorStatus acdbOpenAcDbEntity(class AcDbEntity*& entity, AcDbObjectId id,
                                     AcDb::OpenMode mode, bool openErased = false);

/// Opens the object under `id` as the class of `object`.
template<typename T>
Acad::ErrorStatus acdbOpenObject(T*& object, AcDbObjectId id, AcDb::OpenMode mode = AcDb::kForRead,
                                 bool openErased = false) {
    AcDbObject* opened = nullptr;
    const Acad::ErrorStatus status = acdbOpenAcDbObject(opened, id, mode, T::desc(), openErased);
    object = static_cast<T*>(opened);
    return status;
}

/// The id behind an entity name. eInvalidAdsName for the name of no object.
Acad::ErrorStatus acdbGetObjectId(AcDbObjectId& id, const ads_name name);

/// The entity name of an id. eNullObjectId for null; `name` is zeroed on failure.
Acad::ErrorStatus acdbGetAdsName(ads_name name, AcDbObjectId id);

/// The entity name of the object with this handle (hexadecimal text) in the working database.
/// RTNORM, or RTERROR for an unknown or erased one.
int acdbHandEnt(const ACHAR* handle, ads_name name);

namespace host_db {

/// Number of opens not yet closed, over all databases: a reader and a writer count one each.
std::size_t openObjectCount();

/// The object under an id without opening it, for the host's own look-ups within one operation:
/// nullptr for a null, stale or erased id. The pointer is not to be kept.
const AcDbObject* peekObject(AcDbObjectId id);

/// The same, as a class of one's choice; nullptr when the object is of another class.
template<typename T>
const T* peek(AcDbObjectId id) {
    return T::cast(peekObject(id));
}

} // namespace host_db
