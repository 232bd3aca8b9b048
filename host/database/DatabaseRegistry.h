#pragma once

#include <cstdint>

class AcDbDatabase;

/// Which databases of the process are open, by serial number. An id finds its database here, so an
/// id of a closed one finds nothing.
namespace host_db {

/// Enters a database and gives its serial number, above 0 and never used before.
std::uint32_t enterDatabase(AcDbDatabase* database);

void leaveDatabase(std::uint32_t serial);

/// nullptr for 0 and for the number of a closed database.
AcDbDatabase* databaseOf(std::uint32_t serial);

} // namespace host_db
