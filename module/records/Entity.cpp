#include "records/Entity.h"

_Entity::_Entity() = default;

_Entity::_Entity(_Entity& other)
    : id(other.id), layer(other.layer), systemName(other.systemName), valid(other.valid) {}

_Entity::_Entity(AcDbObjectId id, CString systemName) : id(id), systemName(systemName) {}

_Entity& _Entity::operator=(const _Entity& other) {
    if (this != &other) {
        id = other.id;
        layer = other.layer;
        systemName = other.systemName;
        valid = other.valid;
    }
    return *this;
}

_Entity::~_Entity() = default;
