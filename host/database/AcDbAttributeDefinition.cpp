#include "database/AcDbAttributeDefinition.h"

ACRX_DEFINE_MEMBERS(AcDbAttributeDefinition, AcDbText, L"ATTDEF")

AcRxObject* AcDbAttributeDefinition::clone() const {
    return new AcDbAttributeDefinition(*this);
}

Acad::ErrorStatus AcDbAttributeDefinition::setTag(const ACHAR* tag) {
    return change(tag_, tag);
}

Acad::ErrorStatus AcDbAttributeDefinition::setPrompt(const ACHAR* prompt) {
    return change(prompt_, prompt);
}

Acad::ErrorStatus AcDbAttributeDefinition::setFlags(int flags) {
    return change(flags_, flags);
}
