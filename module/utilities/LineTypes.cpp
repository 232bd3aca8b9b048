#include "utilities/LineTypes.h"

#include "utilities/DocumentLock.h"
#include "utilities/OpenSymbolTable.h"

namespace {

using tkvlt::DocumentLock;
using tkvlt::OpenSymbolTable;

enum class Presence { Unknown, Missing, There };

/// Whether the drawing has the linetype before anything is loaded. The table is closed by then.
Presence FindInDrawing(const CString& name) {
    AcDbLinetypeTable* table = nullptr;
    if (OpenSymbolTable(table) != Acad::eOk) {
        return Presence::Unknown;
    }
    const bool found = table->has(name);
    table->close();
    return found ? Presence::There : Presence::Missing;
}

/// Whether that worked is for the next look at the table to see.
void LoadFrom(const CString& name, const ACHAR* file) {
    acdbHostApplicationServices()->workingDatabase()->loadLineTypeFile(name, file);
}

void LoadFromProductFile(const CString& name) {
    const DocumentLock lock;
    LoadFrom(name, GetSystemPath() + L"\\System\\TK_VGP.LIN");
}

/// Loads what the table still lacks from one of the host's own files, which the host finds by name.
/// The table is open until the document is locked, and closed before the load. False when the table
/// cannot be opened.
bool LoadMissing(const CString& name, const ACHAR* file) {
    AcDbLinetypeTable* table = nullptr;
    if (OpenSymbolTable(table) != Acad::eOk) {
        return false;
    }
    if (table->has(name)) {
        table->close();
        return true;
    }
    const DocumentLock lock;
    table->close();
    LoadFrom(name, file);
    return true;
}

int ReadId(const CString& name, AcDbObjectId& id) {
    AcDbLinetypeTable* table = nullptr;
    if (OpenSymbolTable(table) != Acad::eOk) {
        return 0;
    }
    AcDbLinetypeTableRecord* record = nullptr;
    if (table->getAt(name, record, AcDb::kForRead) != Acad::eOk) {
        table->close();
        return 0;
    }
    id = record->objectId();
    record->close();
    table->close();
    return 1;
}

} // namespace

int PelGetLineTypeId(CString name, AcDbObjectId& id) {
    const Presence presence = FindInDrawing(name);
    if (presence == Presence::Unknown) {
        return 0;
    }
    if (presence == Presence::Missing) {
        LoadFromProductFile(name);
        if (!LoadMissing(name, L"acadiso.lin") || !LoadMissing(name, L"acad.lin")) {
            return 0;
        }
    }
    return ReadId(name, id);
}
