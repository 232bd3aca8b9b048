#include "utilities/LayerFlags.h"

#include "utilities/DocumentLock.h"
#include "utilities/OpenSymbolTable.h"

namespace {

constexpr int kNoLayer = -1;

int ReadFlag(const CString& name, bool (AcDbLayerTableRecord::*flag)() const) {
    const tkvlt::DocumentLock lock;
    AcDbLayerTable* table = nullptr;
    if (tkvlt::OpenSymbolTable(table) != Acad::eOk) {
        return kNoLayer;
    }
    AcDbLayerTableRecord* layer = nullptr;
    const Acad::ErrorStatus status = table->getAt(name, layer, AcDb::kForRead);
    table->close();
    if (status != Acad::eOk) {
        return kNoLayer;
    }
    const bool value = (layer->*flag)();
    layer->close();
    return value ? 1 : 0;
}

} // namespace

int PelIsLayerOff(CString name) {
    return ReadFlag(name, &AcDbLayerTableRecord::isOff);
}

int PelIsLayerLocked(CString name) {
    return ReadFlag(name, &AcDbLayerTableRecord::isLocked);
}
