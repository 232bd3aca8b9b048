#pragma once

#include "database/AcadErrorStatus.h"
#include "database/AcDbObject.h"

#include <cstddef>
#include <string>

namespace host_db {

/// The rule of opening: any number of readers or one writer. All opening and closing of objects in
/// a database goes through here, so that the process knows how many are open.
struct OpenObjects {
    /// Most readers of one object at a time.
    static constexpr int kMaxReaders = 256;

    static Acad::ErrorStatus open(AcDbObject& object, AcDb::OpenMode mode, bool openErased);
    static Acad::ErrorStatus close(AcDbObject& object);
    static Acad::ErrorStatus upgrade(AcDbObject& object);
    static Acad::ErrorStatus downgrade(AcDbObject& object);
    /// Forgets what is still open of a database that goes away.
    static void forget(AcDbDatabase& database);
    static std::size_t count();
    static AcDbObject* find(AcDbObjectId id);

private:
    static std::size_t& total();
    static void add(AcDbDatabase& database, bool opened);
};

/// `word` and the object's handle, as listeners are told.
std::wstring eventLine(const wchar_t* word, AcDbObjectId id);

} // namespace host_db
