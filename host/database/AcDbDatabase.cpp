#include "database/AcDbDatabase.h"

#include "database/AcDbHostApplicationServices.h"
#include "database/BlockShapes.h"
#include "database/DatabaseBuilder.h"
#include "database/DatabaseRegistry.h"
#include "database/ObjectIdPacking.h"
#include "database/OpenObjects.h"
#include "database/UndoJournal.h"

#include <limits>

AcDbDatabase::AcDbDatabase(bool defaults, bool /*noDocument*/)
    : serial_(host_db::enterDatabase(this)) {
    namedObjects_ = makeObject(std::make_unique<AcDbDictionary>());
    blockTable_ = makeObject(std::make_unique<AcDbBlockTable>());
    layerTable_ = makeObject(std::make_unique<AcDbLayerTable>());
    linetypeTable_ = makeObject(std::make_unique<AcDbLinetypeTable>());
    textStyleTable_ = makeObject(std::make_unique<AcDbTextStyleTable>());
    dimStyleTable_ = makeObject(std::make_unique<AcDbDimStyleTable>());
    regAppTable_ = makeObject(std::make_unique<AcDbRegAppTable>());
    if (defaults) {
        host_db::DatabaseBuilder(*this).finish();
    }
}

AcDbDatabase::~AcDbDatabase() {
    if (acdbHostApplicationServices()->workingDatabase() == this) {
        acdbHostApplicationServices()->setWorkingDatabase(nullptr);
    }
    host_db::OpenObjects::forget(*this);
    host_db::leaveDatabase(serial_);
}

AcDbObjectId AcDbDatabase::makeObject(std::unique_ptr<AcDbObject> object) {
    const std::uint32_t place = objects_.append();
    put(place, std::move(object), AcDbObjectId());
    return idAt(place);
}

AcDbObjectId AcDbDatabase::idAt(std::uint32_t place) const {
    return AcDbObjectId::fromOldId(host_db::packId(serial_, place));
}

void AcDbDatabase::put(std::uint32_t place, std::unique_ptr<AcDbObject> object,
                       AcDbObjectId owner) {
    object->id_ = idAt(place);
    object->ownerId_ = owner;
    objects_.fill(place, std::move(object));
    ++revision_;
    if (journal_ != nullptr) {
        journal_->noteAdded(idAt(place));
    }
}

void AcDbDatabase::replace(AcDbObjectId id, AcDbObject* object) {
    const auto place = static_cast<std::uint32_t>(host_db::placeOf(id.asOldId()));
    // The one that stood there is the caller's from now on.
    (void)objects_.take(place).release();
    objects_.fill(place, std::unique_ptr<AcDbObject>(object));
    ++revision_;
}

host_db::BlockShapes& AcDbDatabase::blockShapes() const {
    if (blockShapes_ == nullptr) {
        blockShapes_ = std::make_unique<host_db::BlockShapes>();
    }
    return *blockShapes_;
}

host_db::UndoJournal& AcDbDatabase::undoJournal() {
    if (journal_ == nullptr) {
        journal_ = std::make_unique<host_db::UndoJournal>(*this);
    }
    return *journal_;
}

void AcDbDatabase::noteHandle(std::uint64_t handle) {
    if (handle >= handleSeed_ && handle != std::numeric_limits<std::uint64_t>::max()) {
        handleSeed_ = handle + 1;
    }
}

std::uint64_t AcDbDatabase::newHandle() {
    if (journal_ != nullptr) {
        journal_->noteSettings();
    }
    // Handles run on; only a file that has used the very last one makes them start over.
    while (handleSeed_ == 0 || objects_.find(handleSeed_) != host_db::ObjectTable::kNone) {
        ++handleSeed_;
    }
    return handleSeed_++;
}

AcDbObjectId AcDbDatabase::modelSpaceId() const {
    return spaces_.empty() ? AcDbObjectId() : spaces_.front();
}

namespace {

AcDbObjectId findIn(AcDbObjectId tableId, const ACHAR* name) {
    const auto* table = host_db::peek<AcDbSymbolTable>(tableId);
    return table == nullptr ? AcDbObjectId() : table->find(name);
}

} // namespace

AcDbObjectId AcDbDatabase::layerZero() const {
    return findIn(layerTable_, L"0");
}

AcDbObjectId AcDbDatabase::clayer() const {
    return currentLayer_.isValid() ? currentLayer_ : layerZero();
}

Acad::ErrorStatus AcDbDatabase::setClayer(AcDbObjectId layer) {
    if (layer.database() != this || host_db::peek<AcDbLayerTableRecord>(layer) == nullptr) {
        return Acad::eInvalidInput;
    }
    if (journal_ != nullptr) {
        journal_->noteSettings();
    }
    currentLayer_ = layer;
    ++revision_;
    return Acad::eOk;
}

AcDbObjectId AcDbDatabase::byLayerLinetype() const {
    return findIn(linetypeTable_, L"ByLayer");
}

AcDbObjectId AcDbDatabase::textstyle() const {
    return findIn(textStyleTable_, L"Standard");
}

Acad::ErrorStatus AcDbDatabase::getSymbolTable(AcDbBlockTable*& table, AcDb::OpenMode mode) const {
    return acdbOpenObject(table, blockTable_, mode);
}

Acad::ErrorStatus AcDbDatabase::getSymbolTable(AcDbLayerTable*& table, AcDb::OpenMode mode) const {
    return acdbOpenObject(table, layerTable_, mode);
}

Acad::ErrorStatus AcDbDatabase::getSymbolTable(AcDbLinetypeTable*& table,
                                               AcDb::OpenMode mode) const {
    return acdbOpenObject(table, linetypeTable_, mode);
}

Acad::ErrorStatus AcDbDatabase::getSymbolTable(AcDbTextStyleTable*& table,
                                               AcDb::OpenMode mode) const {
    return acdbOpenObject(table, textStyleTable_, mode);
}

Acad::ErrorStatus AcDbDatabase::getSymbolTable(AcDbDimStyleTable*& table,
                                               AcDb::OpenMode mode) const {
    return acdbOpenObject(table, dimStyleTable_, mode);
}

Acad::ErrorStatus AcDbDatabase::getSymbolTable(AcDbRegAppTable*& table, AcDb::OpenMode mode) const {
    return acdbOpenObject(table, regAppTable_, mode);
}

Acad::ErrorStatus AcDbDatabase::getBlockTable(AcDbBlockTable*& table, AcDb::OpenMode mode) const {
    return getSymbolTable(table, mode);
}

Acad::ErrorStatus AcDbDatabase::getLayerTable(AcDbLayerTable*& table, AcDb::OpenMode mode) const {
    return getSymbolTable(table, mode);
}

Acad::ErrorStatus AcDbDatabase::getLinetypeTable(AcDbLinetypeTable*& table,
                                                 AcDb::OpenMode mode) const {
    return getSymbolTable(table, mode);
}

Acad::ErrorStatus AcDbDatabase::getTextStyleTable(AcDbTextStyleTable*& table,
                                                  AcDb::OpenMode mode) const {
    return getSymbolTable(table, mode);
}

Acad::ErrorStatus AcDbDatabase::getDimStyleTable(AcDbDimStyleTable*& table,
                                                 AcDb::OpenMode mode) const {
    return getSymbolTable(table, mode);
}

Acad::ErrorStatus AcDbDatabase::getRegAppTable(AcDbRegAppTable*& table, AcDb::OpenMode mode) const {
    return getSymbolTable(table, mode);
}

Acad::ErrorStatus AcDbDatabase::getNamedObjectsDictionary(AcDbDictionary*& dictionary,
                                                          AcDb::OpenMode mode) const {
    return acdbOpenObject(dictionary, namedObjects_, mode);
}

Acad::ErrorStatus AcDbDatabase::getAcDbObjectId(AcDbObjectId& id, bool create,
                                                const AcDbHandle& handle) {
    if (handle.isNull()) {
        return Acad::eNullHandle;
    }
    const std::uint32_t known = objects_.find(handle.value());
    if (!create && (known == host_db::ObjectTable::kNone || objects_.at(known) == nullptr)) {
        return Acad::eUnknownHandle;
    }
    id = idAt(objects_.reserve(handle.value()));
    return Acad::eOk;
}

Acad::ErrorStatus AcDbDatabase::addAcDbObject(AcDbObjectId& id, AcDbObject* object,
                                              AcDbObjectId owner) {
    if (object == nullptr) {
        return Acad::eNullObjectPointer;
    }
    if (!object->id_.isNull()) {
        return Acad::eAlreadyInDb;
    }
    const std::uint32_t place = objects_.reserve(newHandle());
    put(place, std::unique_ptr<AcDbObject>(object), owner);
    host_db::OpenObjects::open(*object, AcDb::kForWrite, false);
    object->onAdded(*this);
    id = object->id_;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbDatabase::registerApplication(const ACHAR* name) {
    if (name == nullptr || *name == L'\0') {
        return Acad::eInvalidInput;
    }
    if (isWriteBlocked() && applications_.find(name) == host_db::XdataApplications::kNone) {
        return Acad::eLockViolation;
    }
    host_db::DatabaseBuilder(*this).application(name);
    return Acad::eOk;
}
