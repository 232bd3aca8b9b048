#pragma once

#include "database/AcDbExtents.h"
#include "database/AcDbObject.h"
#include "geometry/AcGePoint3dArray.h"

/// A drawable object: layer, colour, linetype, extents.
class AcDbEntity : public AcDbObject {
    ACRX_DECLARE_MEMBERS(AcDbEntity);

public:
    /// Name of the layer as its record spells it; a new text that the caller releases with
    /// acutDelString. Empty while the entity has no layer.
    ACHAR* layer() const;
    /// The same into a text of the platform's class library.
    Acad::ErrorStatus layer(CString& name) const;
    AcDbObjectId layerId() const { return layerId_; }
    /// Looks the name up (without regard to case) in the entity's database, or in the working one
    /// for an entity outside; eKeyNotFound.
    Acad::ErrorStatus setLayer(const ACHAR* name);
    /// eInvalidInput for the id of no layer.
    Acad::ErrorStatus setLayer(AcDbObjectId id);

    /// Colour number: 1 to 255, 0 by block, 256 by layer (the default).
    Adesk::UInt16 colorIndex() const { return colorIndex_; }
    /// eInvalidInput above 256.
    Acad::ErrorStatus setColorIndex(Adesk::UInt16 color);

    /// Name of the linetype ("ByLayer" when the entity has none of its own); released by the
    /// caller with acutDelString.
    ACHAR* linetype() const;
    /// By layer, its record is ByLayer; null only for such an entity outside a database.
    AcDbObjectId linetypeId() const;
    Acad::ErrorStatus setLinetype(const ACHAR* name);
    Acad::ErrorStatus setLinetype(AcDbObjectId id);

    AcDb::Visibility visibility() const { return visibility_; }
    Acad::ErrorStatus setVisibility(AcDb::Visibility visibility);

    /// The block table record that holds the entity (of an attribute: that of its reference).
    AcDbObjectId blockId() const;

    /// The box of the entity's geometry in world coordinates. eInvalidExtents when it has none;
    /// `extents` is untouched then.
    virtual Acad::ErrorStatus getGeomExtents(AcDbExtents& extents) const;

    /// Takes layer 0 and the by-layer properties of `database` (the working one for nullptr).
    void setDatabaseDefaults(AcDbDatabase* database = nullptr);

    /// Appends to `points` the places where this entity's curves meet the other's in space, each
    /// once, in order along this one; places are on this entity. Block references show their
    /// definition's curves, attributes, texts and unknown entities have none. Prolonged, a line and
    /// the end segments of an open polyline are unbounded and an arc is its circle. Parallel lines
    /// and arcs on one circle have no meeting; a touch counts once. Splines count as chords, 64
    /// between two knots. The markers have no effect. eOk also without any place; eInvalidInput for
    /// nullptr.
    virtual Acad::ErrorStatus intersectWith(const AcDbEntity* other, AcDb::Intersect which,
                                            AcGePoint3dArray& points, Adesk::IntPtr thisMarker = 0,
                                            Adesk::IntPtr otherMarker = 0) const;

    /// Grows `box` by the geometry as it stands under `transform`, exactly for curves. Returns
    /// false, with `box` untouched, when there is nothing to add.
    virtual bool addExtents(const AcGeMatrix3d& transform, AcDbExtents& box) const;

protected:
    AcDbEntity() = default;
    AcDbEntity(const AcDbEntity&) = default;
    void onAdded(AcDbDatabase& database) override;

private:
    friend class host_db::DatabaseBuilder;

    AcDbObjectId layerId_;
    AcDbObjectId linetypeId_;
    Adesk::UInt16 colorIndex_ = 256;
    AcDb::Visibility visibility_ = AcDb::kVisible;
};
