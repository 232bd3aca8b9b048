#include "utilities/Styles.h"

#include "utilities/OpenSymbolTable.h"

Acad::ErrorStatus PelGetDimStyleId(CString name, AcDbObjectId& id) {
    AcDbDimStyleTable* table = nullptr;
    const Acad::ErrorStatus opened = tkvlt::OpenSymbolTable(table);
    if (opened != Acad::eOk) {
        return opened;
    }
    const Acad::ErrorStatus found = table->getAt(name, id);
    table->close();
    return found;
}

Acad::ErrorStatus PelGetTextStyleId(CString name, AcDbObjectId& id, double& widthFactor) {
    AcDbTextStyleTable* table = nullptr;
    const Acad::ErrorStatus opened = tkvlt::OpenSymbolTable(table);
    if (opened != Acad::eOk) {
        return opened;
    }
    const Acad::ErrorStatus found = table->getAt(name, id);
    if (found == Acad::eOk) {
        AcDbTextStyleTableRecord* style = nullptr;
        if (table->getAt(name, style, AcDb::kForRead) == Acad::eOk) {
            widthFactor = style->xScale();
            style->close();
        }
    }
    table->close();
    return found;
}

double PelGetTextWidth(CString styleName, const CString& text) {
    AcDbObjectId style;
    double widthFactor = 1.0;
    PelGetTextStyleId(styleName, style, widthFactor);
    AcDbText measured(AcGePoint3d::kOrigin, text, style, 1.0, 0.0);
    measured.setWidthFactor(widthFactor);
    AcDbExtents box;
    measured.getGeomExtents(box);
    return box.maxPoint().x - box.minPoint().x;
}
