#include "database/AcDbObjectId.h"

#include "database/AcDbDatabase.h"
#include "database/DatabaseRegistry.h"
#include "database/ObjectIdPacking.h"

const AcDbObjectId AcDbObjectId::kNull{};

namespace {

const AcDbObject* objectOf(const AcDbObjectId& id) {
    const AcDbDatabase* database = id.database();
    return database == nullptr ? nullptr : database->objects().at(host_db::placeOf(id.asOldId()));
}

} // namespace

AcDbObjectId AcDbObjectId::fromOldId(std::int64_t value) {
    AcDbObjectId id;
    id.value_ = value;
    return id;
}

bool AcDbObjectId::isValid() const {
    const AcDbObject* object = objectOf(*this);
    return object != nullptr && !object->isErased();
}

bool AcDbObjectId::isErased() const {
    return !isNull() && !isValid();
}

AcDbHandle AcDbObjectId::handle() const {
    const AcDbDatabase* owner = database();
    return owner == nullptr ? AcDbHandle()
                            : AcDbHandle(owner->objects().handleAt(host_db::placeOf(value_)));
}

AcDbDatabase* AcDbObjectId::database() const {
    return host_db::homeOf(*this);
}
