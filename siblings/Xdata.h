#pragma once

#include "database/AcadErrorStatus.h"
#include "database/AcDbObjectId.h"
#include "platform/CString.h"
#include "platform/PlatformTypes.h"

class AcDbEntity;
class AcDbObject;

/// Text in extended data: one text per registered application.
///
/// The text of an application is its first string item (group 1000); of an application that stands
/// twice on an object the first counts. Application names are compared without regard to case.

/// Reads the text that the object carries under `applicationName`. Opens the object for read and
/// closes it again. Gives 1 and sets `value` when the application is present; `value` becomes empty
/// when it is present without a string item. Gives 0 and leaves `value` as it was when the
/// application is missing or the object cannot be opened. Cost: one look at the object's own data.
int GetXdata(AcDbObjectId id, const wchar_t* applicationName, CString& value);
/// The same for an object that the caller has open, for read or for write; it stays open.
int GetXdata(const AcDbObject* object, const wchar_t* applicationName, CString& value);
/// The same for an entity name.
int GetXdata(const ads_name name, const wchar_t* applicationName, CString& value);

/// Makes `value` the text under `applicationName`: the object then carries exactly one string item
/// under it. Other applications on the object are kept. An application that the object's drawing
/// does not know yet is registered first. Opens the object for write and closes it again.
/// Gives 1, or 0 when the object cannot be opened for write or the host refuses the data.
int SetXdata(AcDbObjectId id, const wchar_t* applicationName, const CString& value);
/// The same for an object that the caller has open for write; it stays open.
int SetXdata(AcDbObject* object, const wchar_t* applicationName, const CString& value);

/// Erases the object. Gives 1, or 0 when it cannot be opened for write, as when it is erased
/// already.
int EraseObject(AcDbObjectId id);

/// Appends `entity` to the current space of the working drawing, which owns it from then on, closes
/// it and gives its id in `id`. On a status other than `Acad::eOk` the entity still belongs to the
/// caller and `id` is left as it was.
Acad::ErrorStatus PutEntityToDatabase(AcDbEntity* entity, AcDbObjectId& id);
/// The same; gives the id, the null id on failure.
AcDbObjectId PutEntityToDatabase(AcDbEntity* entity);

/// Puts the name of the block definition that the block reference `id` shows into `name`, in the
/// definition's own spelling. Gives true, or false with `name` as it was when `id` cannot be opened
/// as a block reference or its definition cannot be opened.
bool GetBlockRefName(AcDbObjectId id, CString& name);
