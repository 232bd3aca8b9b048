#pragma once

#include "database/AcDbEntity.h"
#include "geometry/AcGeScale3d.h"

#include <memory>
#include <vector>

class AcDbAttribute;
class AcDbObjectIterator;

/// A block definition placed in the drawing.
class AcDbBlockReference : public AcDbEntity {
    ACRX_DECLARE_MEMBERS(AcDbBlockReference);

public:
    AcDbBlockReference() = default;
    AcDbBlockReference(const AcGePoint3d& position, AcDbObjectId block);
    AcRxObject* clone() const override;

    /// The insertion point in world coordinates.
    AcGePoint3d position() const { return position_; }
    AcGeScale3d scaleFactors() const { return scale_; }
    /// Radians about the normal.
    double rotation() const { return rotation_; }
    AcGeVector3d normal() const { return normal_; }
    /// The definition's block table record; null for a name that no definition has.
    AcDbObjectId blockTableRecord() const { return block_; }
    Acad::ErrorStatus setPosition(const AcGePoint3d& point);
    Acad::ErrorStatus setScaleFactors(const AcGeScale3d& scale);
    Acad::ErrorStatus setRotation(double angle);
    Acad::ErrorStatus setNormal(const AcGeVector3d& normal);
    Acad::ErrorStatus setBlockTableRecord(AcDbObjectId block);
    /// From the definition's coordinates to the world's: base point to origin, scale, rotation,
    /// the reference's own coordinate system, insertion point.
    AcGeMatrix3d blockTransform() const;

    /// The box of the definition's geometry under `transform` times the block transform: nested
    /// references and true arcs included, attributes and their definitions not. eInvalidExtents for
    /// an empty, unknown or endlessly nested definition; `extents` is untouched then. A definition
    /// that contains itself counts without its inner self. Cost: one visit for each entity that the
    /// definition shows, of repeated definitions at most host_db::kMaxRepeatedVisits.
    Acad::ErrorStatus
    geomExtentsBestFit(AcDbExtents& extents,
                       const AcGeMatrix3d& transform = AcGeMatrix3d::kIdentity) const;
    bool addExtents(const AcGeMatrix3d& transform, AcDbExtents& box) const override;

    /// Adds an attribute to a reference that is in a database and open for write; the database
    /// takes the attribute.
    Acad::ErrorStatus appendAttribute(AcDbObjectId& id, AcDbAttribute* attribute);
    Acad::ErrorStatus appendAttribute(AcDbAttribute* attribute);
    /// Ids of the attributes in order, erased ones left out; deleted by the caller.
    AcDbObjectIterator* attributeIterator() const;

    /// An array of the block: numbers of columns and rows (1 for a single one) and their distances
    /// along the reference's turned axes.
    int columns() const { return grid_ ? grid_->columns : 1; }
    int rows() const { return grid_ ? grid_->rows : 1; }
    double columnSpacing() const { return grid_ ? grid_->columnSpacing : 0.0; }
    double rowSpacing() const { return grid_ ? grid_->rowSpacing : 0.0; }
    /// Counts below 1 become 1.
    Acad::ErrorStatus setGrid(int columns, int rows, double columnSpacing, double rowSpacing);

    /// Place of the end mark that follows the attributes in the file; empty without one.
    host_dxf::SourceRange attributesEnd() const;

    Acad::ErrorStatus erase(bool erasing = true) override;

protected:
    AcDbBlockReference(const AcDbBlockReference& other);
    void takeLists(AcDbObject& changed) override;
    void disown(const AcDbObject& owned) override;

private:
    friend class host_db::DatabaseBuilder;

    struct Grid {
        int columns = 1;
        int rows = 1;
        double columnSpacing = 0.0;
        double rowSpacing = 0.0;
    };
    struct Attributes {
        std::vector<AcDbObjectId> ids;
        host_dxf::SourceRange end;
    };

    AcGePoint3d position_;
    AcGeScale3d scale_;
    AcGeVector3d normal_{0.0, 0.0, 1.0};
    double rotation_ = 0.0;
    AcDbObjectId block_;
    std::unique_ptr<Grid> grid_;
    std::unique_ptr<Attributes> attributes_;
};
