#pragma once

#include "database/AcDbObjectId.h"
#include "database/ObjectIdPacking.h"

#include <cstdint>

class AcDbDatabase;

/// Which databases of the process are open, by serial number. An id finds its database here, so an
/// id of a closed one finds nothing.
namespace host_db {

/// Enters a database and gives its serial number, above 0 and never used before.
std::uint32_t enterDatabase(AcDbDatabase* database);

void leaveDatabase(std::uint32_t serial);

struct OpenDatabase {
    std::uint32_t serial = 0;
    AcDbDatabase* database = nullptr;
};

/// Of the open databases the one that was opened last; the number 0 while none is open.
class LatestDatabase {
public:
    static const OpenDatabase& get() { return latest_; }

private:
    friend struct DatabaseRegistry;

    static OpenDatabase latest_;
};

AcDbDatabase* findDatabase(std::uint32_t serial);

/// nullptr for 0 and for the number of a closed database. Nearly every id that is asked about
/// belongs to the drawing that was opened last.
inline AcDbDatabase* databaseOf(std::uint32_t serial) {
    const OpenDatabase& latest = LatestDatabase::get();
    return serial == latest.serial ? latest.database : findDatabase(serial);
}

/// The database of an id, nullptr for the null id and once it is closed.
inline AcDbDatabase* homeOf(AcDbObjectId id) {
    return databaseOf(serialOf(id.asOldId()));
}

} // namespace host_db
