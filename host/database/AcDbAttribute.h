#pragma once

#include "database/AcDbText.h"

/// A text that a block reference carries under a tag. Its owner is the reference.
class AcDbAttribute : public AcDbText {
    ACRX_DECLARE_MEMBERS(AcDbAttribute);

public:
    AcDbAttribute() = default;
    AcRxObject* clone() const override;

    const ACHAR* tagConst() const { return tag_; }
    /// Flags of the drawing file: 1 invisible, 2 constant, 4 verify, 8 preset.
    int flags() const { return flags_; }
    Acad::ErrorStatus setTag(const ACHAR* tag);
    Acad::ErrorStatus setFlags(int flags);

protected:
    AcDbAttribute(const AcDbAttribute&) = default;

private:
    CString tag_;
    int flags_ = 0;
};
