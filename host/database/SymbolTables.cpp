#include "database/SymbolTables.h"

#include "database/AcDbDatabase.h"

#include <cmath>
#include <numeric>

ACRX_DEFINE_MEMBERS(AcDbLayerTableRecord, AcDbSymbolTableRecord, L"LAYER")
ACRX_DEFINE_MEMBERS(AcDbLinetypeTableRecord, AcDbSymbolTableRecord, L"LTYPE")
ACRX_DEFINE_MEMBERS(AcDbTextStyleTableRecord, AcDbSymbolTableRecord, L"STYLE")
ACRX_DEFINE_MEMBERS(AcDbDimStyleTableRecord, AcDbSymbolTableRecord, L"DIMSTYLE")
ACRX_DEFINE_MEMBERS(AcDbRegAppTableRecord, AcDbSymbolTableRecord, L"APPID")
ACRX_DEFINE_MEMBERS(AcDbBlockTable, AcDbSymbolTable, L"TABLE")
ACRX_DEFINE_MEMBERS(AcDbLayerTable, AcDbSymbolTable, L"TABLE")
ACRX_DEFINE_MEMBERS(AcDbLinetypeTable, AcDbSymbolTable, L"TABLE")
ACRX_DEFINE_MEMBERS(AcDbTextStyleTable, AcDbSymbolTable, L"TABLE")
ACRX_DEFINE_MEMBERS(AcDbDimStyleTable, AcDbSymbolTable, L"TABLE")
ACRX_DEFINE_MEMBERS(AcDbRegAppTable, AcDbSymbolTable, L"TABLE")

namespace {

int withFlag(int flags, int flag, bool on) {
    return on ? flags | flag : flags & ~flag;
}

} // namespace

AcRxObject* AcDbLayerTableRecord::clone() const {
    return new AcDbLayerTableRecord(*this);
}

Acad::ErrorStatus AcDbLayerTableRecord::setIsOff(bool off) {
    return change(off_, off);
}

Acad::ErrorStatus AcDbLayerTableRecord::setIsFrozen(bool frozen) {
    return setFlags(withFlag(flags(), 1, frozen));
}

Acad::ErrorStatus AcDbLayerTableRecord::setIsLocked(bool locked) {
    return setFlags(withFlag(flags(), 4, locked));
}

Acad::ErrorStatus AcDbLayerTableRecord::setColorIndex(Adesk::UInt16 color) {
    return color < 1 || color > 255 ? Acad::eInvalidInput : change(color_, color);
}

Acad::ErrorStatus AcDbLayerTableRecord::setLinetypeObjectId(AcDbObjectId id) {
    return change(linetype_, id);
}

AcRxObject* AcDbLinetypeTableRecord::clone() const {
    return new AcDbLinetypeTableRecord(*this);
}

Acad::ErrorStatus AcDbLinetypeTableRecord::setComments(const ACHAR* text) {
    return change(comments_, text);
}

double AcDbLinetypeTableRecord::dashLengthAt(int index) const {
    return index < 0 || index >= numDashes() ? 0.0
                                             : dashes_[static_cast<std::size_t>(index)].length;
}

double AcDbLinetypeTableRecord::patternLength() const {
    return std::accumulate(
        dashes_.begin(), dashes_.end(), 0.0,
        [](double sum, const host_db::LinetypeDash& dash) { return sum + std::abs(dash.length); });
}

Acad::ErrorStatus AcDbLinetypeTableRecord::setDashes(std::vector<host_db::LinetypeDash> dashes) {
    return change(dashes_, dashes);
}

AcRxObject* AcDbTextStyleTableRecord::clone() const {
    return new AcDbTextStyleTableRecord(*this);
}

Acad::ErrorStatus AcDbTextStyleTableRecord::setXScale(double scale) {
    return change(xScale_, scale);
}

Acad::ErrorStatus AcDbTextStyleTableRecord::setTextSize(double size) {
    return change(textSize_, size);
}

Acad::ErrorStatus AcDbTextStyleTableRecord::setObliquingAngle(double angle) {
    return change(oblique_, angle);
}

Acad::ErrorStatus AcDbTextStyleTableRecord::setFileName(const ACHAR* file) {
    return change(fontFile_, file);
}

Acad::ErrorStatus AcDbTextStyleTableRecord::setBigFontFileName(const ACHAR* file) {
    return change(bigFontFile_, file);
}

Acad::ErrorStatus AcDbTextStyleTableRecord::setIsShapeFile(bool shapeFile) {
    return setFlags(withFlag(flags(), 1, shapeFile));
}

AcRxObject* AcDbDimStyleTableRecord::clone() const {
    return new AcDbDimStyleTableRecord(*this);
}

AcRxObject* AcDbRegAppTableRecord::clone() const {
    return new AcDbRegAppTableRecord(*this);
}

Acad::ErrorStatus AcDbRegAppTableRecord::setName(const ACHAR* name) {
    return objectId().isNull() ? AcDbSymbolTableRecord::setName(name) : Acad::eNotApplicable;
}

void AcDbRegAppTableRecord::onAdded(AcDbDatabase& database) {
    AcDbSymbolTableRecord::onAdded(database);
    database.applications_.add(name());
}
