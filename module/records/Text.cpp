#include "records/Text.h"

#include <memory>

#include "records/ClosedAtEnd.h"
#include "records/XdataKeys.h"

namespace {

double UnrotatedWidth(const AcDbText* text) {
    const std::unique_ptr<AcDbText> copy(static_cast<AcDbText*>(text->clone()));
    copy->setRotation(0.0);
    AcDbExtents extents;
    copy->getGeomExtents(extents);
    return extents.maxPoint().x - extents.minPoint().x;
}

} // namespace

_Text::_Text() = default;

_Text::_Text(_Text& other)
    : _Entity(other), height(other.height), widthFactor(other.widthFactor),
      position(other.position), handle(other.handle), text(other.text), rotation(other.rotation),
      width(other.width), horizontalMode(other.horizontalMode), verticalMode(other.verticalMode) {}

_Text::_Text(AcDbObjectId id) : _Entity(id, CString()) {
    AcDbObject* object = nullptr;
    if (acdbOpenAcDbObject(object, id, AcDb::kForRead, AcDbText::desc(), false) != Acad::eOk) {
        return;
    }
    const tkvlt::ClosedAtEnd closing(object);
    auto* entity = static_cast<AcDbText*>(object);
    height = entity->height();
    horizontalMode = entity->horizontalMode();
    verticalMode = entity->verticalMode();
    const bool leftBaseline = horizontalMode == 0 && verticalMode == 0;
    position = leftBaseline ? entity->position() : entity->alignmentPoint();
    entity->layer(layer);
    width = UnrotatedWidth(entity);
    widthFactor = entity->widthFactor();
    entity->textString(text);
    rotation = entity->rotation();
    handle = HandleText(entity);
    valid = 1;
}

_Text& _Text::operator=(const _Text& other) {
    if (this != &other) {
        _Entity::operator=(other);
        height = other.height;
        widthFactor = other.widthFactor;
        position = other.position;
        handle = other.handle;
        text = other.text;
        rotation = other.rotation;
        width = other.width;
        horizontalMode = other.horizontalMode;
        verticalMode = other.verticalMode;
    }
    return *this;
}

_Text::~_Text() = default;
