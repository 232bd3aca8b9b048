#pragma once

#include "database/AcDbObject.h"

/// A named entry of a symbol table.
class AcDbSymbolTableRecord : public AcDbObject {
    ACRX_DECLARE_MEMBERS(AcDbSymbolTableRecord);

public:
    /// The name in its own spelling; a new text that the caller releases with acutDelString.
    Acad::ErrorStatus getName(ACHAR*& name) const;
    /// The name, valid until the record is changed.
    Acad::ErrorStatus getName(const ACHAR*& name) const;
    Acad::ErrorStatus getName(CString& name) const;
    const CString& name() const { return name_; }
    /// Renames the record. eDuplicateKey when another record of its table has the name in any case,
    /// eInvalidInput for an empty one.
    virtual Acad::ErrorStatus setName(const ACHAR* name);
    /// The record depends on an attached drawing: its name holds a vertical bar.
    bool isDependent() const;

    /// Flags of the drawing file (group 70) as they were read, or made by the setters.
    int flags() const { return flags_; }
    Acad::ErrorStatus setFlags(int flags);

protected:
    AcDbSymbolTableRecord() = default;
    AcDbSymbolTableRecord(const AcDbSymbolTableRecord&) = default;
    /// A table takes the record without a name; it is then found by walking alone.
    virtual bool mayBeNameless() const { return false; }
    void takeLists(AcDbObject& changed) override;

private:
    friend class AcDbSymbolTable;

    CString name_;
    int flags_ = 0;
};
