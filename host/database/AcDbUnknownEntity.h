#pragma once

#include "database/AcDbEntity.h"
#include "geometry/AcGePoint3d.h"

#include <vector>

/// An entity whose kind the host does not model: it keeps type name, layer, colour, handle and
/// extended data, and its bytes stay in the file's buffer.
class AcDbUnknownEntity : public AcDbEntity {
    ACRX_DECLARE_MEMBERS(AcDbUnknownEntity);

public:
    AcDbUnknownEntity() = default;
    explicit AcDbUnknownEntity(CString typeName) : typeName_(std::move(typeName)) {}
    AcRxObject* clone() const override;

    const ACHAR* dxfTypeName() const override { return typeName_; }
    /// World points whose box is the entity's (the corners of a solid, the place of a point). Left
    /// empty when nothing is known; the entity then has no extents.
    const std::vector<AcGePoint3d>& outline() const { return outline_; }
    void setOutline(std::vector<AcGePoint3d> points) { outline_ = std::move(points); }
    bool addExtents(const AcGeMatrix3d& transform, AcDbExtents& box) const override;

protected:
    AcDbUnknownEntity(const AcDbUnknownEntity&) = default;

private:
    CString typeName_;
    std::vector<AcGePoint3d> outline_;
};
