#include "database/AcDbAttribute.h"

ACRX_DEFINE_MEMBERS(AcDbAttribute, AcDbText, L"ATTRIB")

AcRxObject* AcDbAttribute::clone() const {
    return new AcDbAttribute(*this);
}

Acad::ErrorStatus AcDbAttribute::setTag(const ACHAR* tag) {
    return change(tag_, tag);
}

Acad::ErrorStatus AcDbAttribute::setFlags(int flags) {
    return change(flags_, flags);
}
