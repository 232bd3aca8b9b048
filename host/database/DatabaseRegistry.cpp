#include "database/DatabaseRegistry.h"

#include "database/ObjectIdPacking.h"

#include <stdexcept>
#include <vector>

namespace host_db {
namespace {

/// Ids are bare numbers that any caller may open without naming a database, so the process needs
/// one table from serial numbers to databases.
std::vector<AcDbDatabase*>& registry() {
    // Never destroyed: drawings still open at the end of the process leave it after all else.
    static auto* const databases = new std::vector<AcDbDatabase*>;
    return *databases;
}

} // namespace

std::uint32_t enterDatabase(AcDbDatabase* database) {
    if (registry().size() >= kMaxSerial) {
        throw std::length_error("too many drawings were opened in one process");
    }
    registry().push_back(database);
    return static_cast<std::uint32_t>(registry().size());
}

void leaveDatabase(std::uint32_t serial) {
    registry()[serial - 1] = nullptr;
}

AcDbDatabase* databaseOf(std::uint32_t serial) {
    return serial >= 1 && serial <= registry().size() ? registry()[serial - 1] : nullptr;
}

} // namespace host_db
