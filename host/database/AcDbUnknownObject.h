#pragma once

#include "database/AcDbObject.h"

/// An object that is no entity and of a kind the host does not model (a layout, a group, a style):
/// it keeps its type name, handle and extended data, and its bytes stay in the file's buffer.
class AcDbUnknownObject : public AcDbObject {
    ACRX_DECLARE_MEMBERS(AcDbUnknownObject);

public:
    AcDbUnknownObject() = default;
    explicit AcDbUnknownObject(CString typeName) : typeName_(std::move(typeName)) {}
    AcRxObject* clone() const override;

    const ACHAR* dxfTypeName() const override { return typeName_; }

protected:
    AcDbUnknownObject(const AcDbUnknownObject&) = default;

private:
    CString typeName_;
};
