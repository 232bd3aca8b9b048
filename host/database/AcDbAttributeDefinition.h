#pragma once

#include "database/AcDbText.h"

/// The template of an attribute inside a block definition. It is no part of a reference's extents.
class AcDbAttributeDefinition : public AcDbText {
    ACRX_DECLARE_MEMBERS(AcDbAttributeDefinition);

public:
    AcDbAttributeDefinition() = default;
    AcRxObject* clone() const override;

    const ACHAR* tagConst() const { return tag_; }
    const ACHAR* promptConst() const { return prompt_; }
    /// Flags of the drawing file: 1 invisible, 2 constant, 4 verify, 8 preset.
    int flags() const { return flags_; }
    Acad::ErrorStatus setTag(const ACHAR* tag);
    Acad::ErrorStatus setPrompt(const ACHAR* prompt);
    Acad::ErrorStatus setFlags(int flags);

protected:
    AcDbAttributeDefinition(const AcDbAttributeDefinition&) = default;

private:
    CString tag_;
    CString prompt_;
    int flags_ = 0;
};
