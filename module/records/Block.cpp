#include "records/Block.h"

#include "records/ClosedAtEnd.h"
#include "records/ReadBlockReference.h"
#include "records/WellShape.h"
#include "records/XdataKeys.h"

namespace {

/// Half of a well of diameter 1 metre, in drawing units.
double DefaultRadius() {
    return 500.0 / GetVZDrawScale();
}

double ReadWellRadius(const AcDbObjectId& id) {
    CString diameter;
    ReadXdata(id, xdata::kWellDiameter, diameter);
    return tkvlt::WellRadius(diameter);
}

} // namespace

AcDbObjectId tkvlt::ReadBlockReference(_Block& block) {
    AcDbObject* object = nullptr;
    if (acdbOpenAcDbObject(object, block.id, AcDb::kForRead, AcDbBlockReference::desc(), false) !=
        Acad::eOk) {
        return AcDbObjectId();
    }
    const tkvlt::ClosedAtEnd closing(object);
    return ReadBlockReference(block, *static_cast<AcDbBlockReference*>(object));
}

AcDbObjectId tkvlt::ReadBlockReference(_Block& block, const AcDbBlockReference& reference) {
    block.scale = reference.scaleFactors();
    block.position = reference.position();
    reference.layer(block.layer);
    block.handle = HandleText(&reference);
    reference.geomExtentsBestFit(block.extents, AcGeMatrix3d::kIdentity);
    block.rotation = reference.rotation();
    block.valid = 1;
    return reference.blockTableRecord();
}

_Block::_Block() : radius(DefaultRadius()) {}

_Block::_Block(_Block& other)
    : _Entity(other), note(other.note), handle(other.handle), position(other.position),
      scale(other.scale), extents(other.extents), rotation(other.rotation), radius(other.radius),
      isSquareWell(other.isSquareWell) {}

_Block::_Block(AcDbObjectId id, CString note, CString systemName)
    : _Entity(id, systemName), note(note), radius(ReadWellRadius(id)) {
    isSquareWell = tkvlt::IsSquareWellDefinition(tkvlt::ReadBlockReference(*this));
}

_Block& _Block::operator=(const _Block& other) {
    if (this != &other) {
        _Entity::operator=(other);
        note = other.note;
        handle = other.handle;
        position = other.position;
        scale = other.scale;
        extents.set(other.extents.minPoint(), other.extents.maxPoint());
        rotation = other.rotation;
        radius = other.radius;
        isSquareWell = other.isSquareWell;
    }
    return *this;
}

_Block::~_Block() = default;
