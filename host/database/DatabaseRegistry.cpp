#include "database/DatabaseRegistry.h"

#include <algorithm>
#include <stdexcept>
#include <vector>

namespace host_db {

/// Only the open ones are kept, in the order of their numbers: a process may open drawings without
/// end.
struct DatabaseRegistry {
    std::vector<OpenDatabase> open;
    std::uint32_t lastSerial = 0;

    /// The place of a number, or where it would stand.
    std::vector<OpenDatabase>::iterator placeOf(std::uint32_t serial) {
        return std::lower_bound(
            open.begin(), open.end(), serial,
            [](const OpenDatabase& each, std::uint32_t wanted) { return each.serial < wanted; });
    }

    void noteLatest() const {
        LatestDatabase::latest_ = open.empty() ? OpenDatabase() : open.back();
    }
};

OpenDatabase LatestDatabase::latest_;

namespace {

/// Ids are bare numbers that any caller may open without naming a database, so the process needs
/// one table from serial numbers to databases.
DatabaseRegistry& registry() {
    // Never destroyed: drawings still open at the end of the process leave it after all else.
    static auto* const databases = new DatabaseRegistry;
    return *databases;
}

} // namespace

std::uint32_t enterDatabase(AcDbDatabase* database) {
    DatabaseRegistry& databases = registry();
    if (databases.lastSerial >= kMaxSerial) {
        throw std::length_error("too many drawings were opened in one process");
    }
    databases.open.push_back({databases.lastSerial + 1, database});
    databases.noteLatest();
    return ++databases.lastSerial;
}

void leaveDatabase(std::uint32_t serial) {
    DatabaseRegistry& databases = registry();
    const auto place = databases.placeOf(serial);
    if (place != databases.open.end() && place->serial == serial) {
        databases.open.erase(place);
        databases.noteLatest();
    }
}

AcDbDatabase* findDatabase(std::uint32_t serial) {
    DatabaseRegistry& databases = registry();
    const auto place = databases.placeOf(serial);
    const bool isOpen = place != databases.open.end() && place->serial == serial;
    return isOpen ? place->database : nullptr;
}

} // namespace host_db
