#include "database/AcDbBlockReference.h"

#include "database/AcDbAttribute.h"
#include "database/AcDbBlockTableRecord.h"
#include "database/AcDbDatabase.h"
#include "database/AcDbObjectIterator.h"
#include "database/BlockExtents.h"
#include "database/ListRemoval.h"
#include "database/Normals.h"
#include "database/OpenObject.h"

#include <algorithm>

ACRX_DEFINE_MEMBERS(AcDbBlockReference, AcDbEntity, L"INSERT")

AcDbBlockReference::AcDbBlockReference(const AcGePoint3d& position, AcDbObjectId block)
    : position_(position), block_(block) {}

AcDbBlockReference::AcDbBlockReference(const AcDbBlockReference& other)
    : AcDbEntity(other), position_(other.position_), scale_(other.scale_), normal_(other.normal_),
      rotation_(other.rotation_), block_(other.block_),
      grid_(other.grid_ ? std::make_unique<Grid>(*other.grid_) : nullptr) {}

void AcDbBlockReference::takeLists(AcDbObject& changed) {
    attributes_ = std::move(static_cast<AcDbBlockReference&>(changed).attributes_);
}

void AcDbBlockReference::disown(const AcDbObject& owned) {
    // A reference may own an extension dictionary as well.
    if (attributes_ == nullptr) {
        return;
    }
    host_db::eraseLast(attributes_->ids, owned.objectId());
    if (attributes_->ids.empty() && attributes_->end.isEmpty()) {
        attributes_.reset();
    }
}

AcRxObject* AcDbBlockReference::clone() const {
    return new AcDbBlockReference(*this);
}

Acad::ErrorStatus AcDbBlockReference::setPosition(const AcGePoint3d& point) {
    return change(position_, point);
}

Acad::ErrorStatus AcDbBlockReference::setScaleFactors(const AcGeScale3d& scale) {
    return change(scale_, scale);
}

Acad::ErrorStatus AcDbBlockReference::setRotation(double angle) {
    return change(rotation_, angle);
}

Acad::ErrorStatus AcDbBlockReference::setNormal(const AcGeVector3d& normal) {
    return change(normal_, host_db::unitNormal(normal));
}

Acad::ErrorStatus AcDbBlockReference::setBlockTableRecord(AcDbObjectId block) {
    return change(block_, block);
}

AcGeMatrix3d AcDbBlockReference::blockTransform() const {
    AcGeMatrix3d matrix;
    matrix.setToTranslation(position_.asVector());
    // What changes nothing is left out: most references stand upright, unturned and unscaled.
    if (normal_.x != 0.0 || normal_.y != 0.0 || normal_.z != 1.0) {
        matrix = matrix * AcGeMatrix3d::planeToWorld(normal_);
    }
    if (rotation_ != 0.0) {
        AcGeMatrix3d turn;
        turn.setToRotation(rotation_, {0.0, 0.0, 1.0});
        matrix = matrix * turn;
    }
    if (scale_.sx != 1.0 || scale_.sy != 1.0 || scale_.sz != 1.0) {
        AcGeMatrix3d scale;
        scale.entry[0][0] = scale_.sx;
        scale.entry[1][1] = scale_.sy;
        scale.entry[2][2] = scale_.sz;
        matrix = matrix * scale;
    }
    const auto* block = host_db::peek<AcDbBlockTableRecord>(block_);
    const AcGeVector3d toOrigin =
        block != nullptr ? AcGePoint3d() - block->origin() : AcGeVector3d(0.0, 0.0, 0.0);
    if (toOrigin.x != 0.0 || toOrigin.y != 0.0 || toOrigin.z != 0.0) {
        AcGeMatrix3d move;
        matrix = matrix * move.setToTranslation(toOrigin);
    }
    return matrix;
}

Acad::ErrorStatus AcDbBlockReference::geomExtentsBestFit(AcDbExtents& extents,
                                                         const AcGeMatrix3d& transform) const {
    AcDbExtents box;
    if (!host_db::addBlockExtents(*this, transform, box)) {
        return Acad::eInvalidExtents;
    }
    extents = box;
    return Acad::eOk;
}

bool AcDbBlockReference::addExtents(const AcGeMatrix3d& transform, AcDbExtents& box) const {
    return host_db::addBlockExtents(*this, transform, box);
}

Acad::ErrorStatus AcDbBlockReference::appendAttribute(AcDbObjectId& id, AcDbAttribute* attribute) {
    if (objectId().isNull()) {
        return Acad::eNotInDatabase;
    }
    if (attribute == nullptr) {
        return Acad::eNullObjectPointer;
    }
    Acad::ErrorStatus status = prepareWrite();
    if (status == Acad::eOk) {
        status = database()->addAcDbObject(id, attribute, objectId());
    }
    if (status == Acad::eOk) {
        if (!attributes_) {
            attributes_ = std::make_unique<Attributes>();
        }
        attributes_->ids.push_back(id);
    }
    return status;
}

Acad::ErrorStatus AcDbBlockReference::appendAttribute(AcDbAttribute* attribute) {
    AcDbObjectId id;
    return appendAttribute(id, attribute);
}

AcDbObjectIterator* AcDbBlockReference::attributeIterator() const {
    std::vector<AcDbObjectId> ids;
    if (attributes_) {
        std::copy_if(attributes_->ids.begin(), attributes_->ids.end(), std::back_inserter(ids),
                     [](AcDbObjectId id) { return id.isValid(); });
    }
    return new AcDbObjectIterator(std::move(ids));
}

Acad::ErrorStatus AcDbBlockReference::setGrid(int columns, int rows, double columnSpacing,
                                              double rowSpacing) {
    const Acad::ErrorStatus status = prepareWrite();
    if (status == Acad::eOk) {
        const Grid grid{std::max(columns, 1), std::max(rows, 1), columnSpacing, rowSpacing};
        const bool isArray = grid.columns > 1 || grid.rows > 1;
        grid_ = isArray ? std::make_unique<Grid>(grid) : nullptr;
    }
    return status;
}

host_dxf::SourceRange AcDbBlockReference::attributesEnd() const {
    return attributes_ ? attributes_->end : host_dxf::SourceRange();
}

Acad::ErrorStatus AcDbBlockReference::erase(bool erasing) {
    const Acad::ErrorStatus status = AcDbEntity::erase(erasing);
    if (status != Acad::eOk || !attributes_) {
        return status;
    }
    for (const AcDbObjectId id : attributes_->ids) {
        AcDbAttribute* attribute = nullptr;
        if (acdbOpenObject(attribute, id, AcDb::kForWrite, true) == Acad::eOk) {
            attribute->erase(erasing);
            attribute->close();
        }
    }
    return Acad::eOk;
}
