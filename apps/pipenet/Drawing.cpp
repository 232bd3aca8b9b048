#include "Drawing.h"

#include "Failure.h"
#include "HandleText.h"
#include "OpenedObject.h"

namespace pipenet {

Drawing::Drawing(std::string path) : path_(std::move(path)) {
    std::string error;
    document_ = host::openDocument(path_, error);
    if (document_ == nullptr) {
        throw Failure(messages::kDrawing, error);
    }
}

Drawing::~Drawing() {
    host::closeDocument(document_);
}

void Drawing::save(const std::string& path) const {
    std::string error;
    if (!host::saveDocument(document_, path, error)) {
        throw Failure(messages::kUnsaved, error);
    }
}

std::string Drawing::name() const {
    return path_.substr(path_.find_last_of('/') + 1);
}

AcDbObjectId Drawing::entity(const AcDbHandle& handle) const {
    AcDbObjectId id;
    const Acad::ErrorStatus found = document_->database()->getAcDbObjectId(id, false, handle);
    if (found == Acad::eOk && id.isErased()) {
        throw Failure(messages::kErasedEntity, path_, handleText(handle));
    }
    if (found != Acad::eOk || !siblings::OpenedObject<AcDbEntity>(id, AcDb::kForRead)) {
        throw Failure(messages::kNoEntity, path_, handleText(handle));
    }
    return id;
}

std::vector<AcDbObjectId> Drawing::entities() const {
    std::vector<AcDbObjectId> all;
    for (const AcDbObjectId& space : document_->database()->spaceIds()) {
        const siblings::OpenedObject<AcDbBlockTableRecord> record(space, AcDb::kForRead);
        if (!record) {
            continue;
        }
        for (const AcDbObjectId& id : record->entityIds()) {
            if (id.isValid()) {
                all.push_back(id);
            }
        }
    }
    return all;
}

std::vector<NetworkEntity> Drawing::networkEntities() const {
    std::vector<NetworkEntity> found;
    for (const AcDbObjectId& id : entities()) {
        if (auto entity = networkEntity(id)) {
            found.push_back(*std::move(entity));
        }
    }
    return found;
}

} // namespace pipenet
