#include "records/WellShape.h"

#include "records/ClosedAtEnd.h"
#include "records/XdataKeys.h"

namespace tkvlt {

namespace {

const wchar_t* const kSquareWellBlock = L"VLT_WELL_04";

} // namespace

double WellRadius(const CString& diameter) {
    return 0.5 * NumberPrefix(diameter) * 1000.0 / GetVZDrawScale();
}

int IsSquareWellDefinition(const AcDbObjectId& definition) {
    AcDbObject* object = nullptr;
    if (acdbOpenAcDbObject(object, definition, AcDb::kForRead, AcDbBlockTableRecord::desc(),
                           false) != Acad::eOk) {
        return 0;
    }
    const ClosedAtEnd closing(object);
    CString name;
    static_cast<AcDbBlockTableRecord*>(object)->getName(name);
    return name.Compare(kSquareWellBlock) == 0 ? 1 : 0;
}

int WellShapes::IsSquare(const AcDbObjectId& definition) {
    return isSquare_.Of(definition, [&] { return IsSquareWellDefinition(definition); });
}

double WellShapes::Radius(const CString& diameter) {
    if (!hasRadius_ || diameter != lastDiameter_) {
        lastRadius_ = WellRadius(diameter);
        lastDiameter_ = diameter;
        hasRadius_ = true;
    }
    return lastRadius_;
}

} // namespace tkvlt
