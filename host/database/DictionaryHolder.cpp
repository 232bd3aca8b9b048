#include "database/DictionaryHolder.h"

#include "database/AcDbDatabase.h"

namespace host_db {

bool holdsDictionaries(const AcDbDatabase& database) {
    const auto* holder = dynamic_cast<const DictionaryHolder*>(database.source());
    return holder == nullptr || holder->holdsDictionaries();
}

} // namespace host_db
