#include "database/SymbolTableSearch.h"

#include "database/AcDbDatabase.h"
#include "database/AcDbHostApplicationServices.h"
#include "database/OpenObject.h"
#include "platform/HostEvents.h"
#include "platform/WideCharacters.h"

#include <string>

namespace {

/// The table of the working database under its name in drawing files; null for an unknown one.
AcDbObjectId tableNamed(const ACHAR* name) {
    const AcDbDatabase* database = acdbHostApplicationServices()->workingDatabase();
    if (database == nullptr || name == nullptr) {
        return {};
    }
    const struct {
        const ACHAR* name;
        AcDbObjectId id;
    } tables[] = {
        {L"APPID", database->regAppTableId()},    {L"BLOCK", database->blockTableId()},
        {L"LAYER", database->layerTableId()},     {L"LTYPE", database->linetypeTableId()},
        {L"STYLE", database->textStyleTableId()}, {L"DIMSTYLE", database->dimStyleTableId()}};
    for (const auto& table : tables) {
        if (host_text::compareNoCase(table.name, name) == 0) {
            return table.id;
        }
    }
    return {};
}

void announceSearch(const ACHAR* table, const ACHAR* name, bool found) {
    if (host::isListening() && table != nullptr && name != nullptr) {
        host::announce(std::wstring(L"tblsearch ") + table + L" " + name +
                       (found ? L" = found" : L" = none"));
    }
}

} // namespace

int acdbRegApp(const ACHAR* name) {
    AcDbDatabase* database = acdbHostApplicationServices()->workingDatabase();
    if (database == nullptr || database->registerApplication(name) != Acad::eOk) {
        return RTERROR;
    }
    if (host::isListening()) {
        host::announce(std::wstring(L"regapp ") + name);
    }
    return RTNORM;
}

resbuf* acdbTblSearch(const ACHAR* table, const ACHAR* name, int /*setNext*/) {
    const auto* records = host_db::peek<AcDbSymbolTable>(tableNamed(table));
    const auto* record =
        records == nullptr ? nullptr : host_db::peek<AcDbSymbolTableRecord>(records->find(name));
    announceSearch(table, name, record != nullptr);
    if (record == nullptr) {
        return nullptr;
    }
    // The block table answers with its definitions, whose type name differs from the record's.
    const bool isBlock = record->isKindOf(AcDbBlockTableRecord::desc());
    const ACHAR* kind = isBlock ? L"BLOCK" : record->dxfTypeName();
    return acutBuildList(RTDXF0, kind, AcDb::kDxfSymTableName, record->name().GetString(),
                         AcDb::kDxfInt16, record->flags(), 0);
}
