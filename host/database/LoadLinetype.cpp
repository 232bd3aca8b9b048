#include "database/LoadLinetype.h"

#include "database/AcDbDatabase.h"
#include "database/LinetypeFile.h"
#include "database/PatternBuilder.h"
#include "database/ReadSupportFile.h"
#include "platform/HostEvents.h"

#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace host_db {
namespace {

Acad::ErrorStatus readDefinition(const ACHAR* name, const ACHAR* file,
                                 LinetypeDefinition& definition) {
    std::string bytes;
    const Acad::ErrorStatus status = readSupportFile(file, bytes);
    return status == Acad::eOk ? findLinetype(decodeLinetypeFile(bytes), name, definition) : status;
}

/// Adds the record to the table, which is open for write.
Acad::ErrorStatus addTo(AcDbLinetypeTable& table, const LinetypeDefinition& definition,
                        std::vector<LinetypeDash> dashes) {
    auto record = std::make_unique<AcDbLinetypeTableRecord>();
    record->setName(definition.name.c_str());
    record->setComments(definition.description.c_str());
    record->setDashes(std::move(dashes));
    const Acad::ErrorStatus added = table.add(record.get());
    if (added == Acad::eOk) {
        record.release()->close();
    }
    return added;
}

Acad::ErrorStatus enter(const AcDbDatabase& database, const LinetypeDefinition& definition) {
    PatternBuilder pattern(database);
    Acad::ErrorStatus status = Acad::eOk;
    for (const LinetypeDefinition::Dash& dash : definition.dashes) {
        status = status == Acad::eOk ? pattern.add(dash) : status;
    }
    AcDbLinetypeTable* table = nullptr;
    if (status == Acad::eOk) {
        status = database.getSymbolTable(table, AcDb::kForWrite);
    }
    if (status != Acad::eOk) {
        return status;
    }
    status = pattern.settle();
    if (status == Acad::eOk) {
        status = addTo(*table, definition, pattern.take());
    }
    table->close();
    return status;
}

} // namespace

Acad::ErrorStatus loadLinetype(AcDbDatabase& database, const ACHAR* name, const ACHAR* file) {
    if (name == nullptr || *name == L'\0' || file == nullptr || *file == L'\0') {
        return Acad::eInvalidInput;
    }
    if (peek<AcDbSymbolTable>(database.linetypeTableId())->has(name)) {
        return Acad::eDuplicateKey;
    }
    LinetypeDefinition definition;
    const Acad::ErrorStatus status = readDefinition(name, file, definition);
    return status == Acad::eOk ? enter(database, definition) : status;
}

} // namespace host_db

Acad::ErrorStatus AcDbDatabase::loadLineTypeFile(const ACHAR* name, const ACHAR* file) {
    Acad::ErrorStatus status = Acad::eOk;
    {
        const host::EventSilence silence;
        status = host_db::loadLinetype(*this, name, file);
    }
    if (host::isListening()) {
        const auto text = [](const ACHAR* each) { return each == nullptr ? L"" : each; };
        host::announce(std::wstring(L"linetype ") + text(name) + L" " + text(file) + L" = " +
                       acadErrorStatusText(status));
    }
    return status;
}
