#include "database/AcDbSymbolTable.h"

#include "database/AcDbDatabase.h"
#include "database/AcDbSymbolTableIterator.h"
#include "database/ListRemoval.h"
#include "database/NameKey.h"
#include "database/OpenObject.h"

#include <algorithm>

ACRX_DEFINE_MEMBERS(AcDbSymbolTable, AcDbObject, L"TABLE")
ACRX_DEFINE_MEMBERS(AcDbSymbolTableRecord, AcDbObject, nullptr)

Acad::ErrorStatus AcDbSymbolTableRecord::getName(ACHAR*& name) const {
    acutNewString(name_, name);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbSymbolTableRecord::getName(const ACHAR*& name) const {
    name = name_;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbSymbolTableRecord::getName(CString& name) const {
    name = name_;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbSymbolTableRecord::setName(const ACHAR* name) {
    if (name == nullptr || *name == L'\0') {
        return Acad::eInvalidInput;
    }
    auto* table = objectId().isNull()
                      ? nullptr
                      : const_cast<AcDbSymbolTable*>(host_db::peek<AcDbSymbolTable>(ownerId()));
    const AcDbObjectId other = table == nullptr ? AcDbObjectId() : table->find(name);
    if (!other.isNull() && other != objectId()) {
        return Acad::eDuplicateKey;
    }
    const Acad::ErrorStatus status = prepareWrite();
    if (status == Acad::eOk) {
        if (table != nullptr) {
            table->rename(*this, name_, name);
        }
        name_ = name;
    }
    return status;
}

bool AcDbSymbolTableRecord::isDependent() const {
    return name_.Find(L'|') >= 0;
}

Acad::ErrorStatus AcDbSymbolTableRecord::setFlags(int flags) {
    return change(flags_, flags);
}

bool AcDbSymbolTable::has(AcDbObjectId id) const {
    return id.isValid() && std::find(records_.begin(), records_.end(), id) != records_.end();
}

AcDbObjectId AcDbSymbolTable::find(const ACHAR* name) const {
    AcDbObjectId id;
    getAt(name, id);
    return id;
}

Acad::ErrorStatus AcDbSymbolTable::getAt(const ACHAR* name, AcDbObjectId& id,
                                         bool getErased) const {
    const std::wstring key = host_db::nameKey(name);
    const auto named = byName_.find(key);
    if (key.empty() || named == byName_.end()) {
        return Acad::eKeyNotFound;
    }
    const std::vector<AcDbObjectId>& ids = named->second;
    auto it =
        std::find_if(ids.begin(), ids.end(), [](AcDbObjectId each) { return each.isValid(); });
    if (it == ids.end()) {
        if (!getErased || ids.empty()) {
            return Acad::eKeyNotFound;
        }
        it = ids.begin();
    }
    id = *it;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbSymbolTable::getAt(const ACHAR* name, AcDbSymbolTableRecord*& record,
                                         AcDb::OpenMode mode, bool openErased) const {
    AcDbObjectId id;
    record = nullptr;
    const Acad::ErrorStatus status = getAt(name, id, openErased);
    return status == Acad::eOk ? acdbOpenObject(record, id, mode, openErased) : status;
}

Acad::ErrorStatus AcDbSymbolTable::add(AcDbObjectId& id, AcDbSymbolTableRecord* record) {
    if (record == nullptr || objectId().isNull()) {
        return record == nullptr ? Acad::eNullObjectPointer : Acad::eNotInDatabase;
    }
    if (record->name().IsEmpty() && !record->mayBeNameless()) {
        return Acad::eInvalidInput;
    }
    if (has(record->name())) {
        return Acad::eDuplicateKey;
    }
    Acad::ErrorStatus status = prepareWrite();
    if (status == Acad::eOk) {
        status = database()->addAcDbObject(id, record, objectId());
    }
    if (status == Acad::eOk) {
        enter(*record);
    }
    return status;
}

Acad::ErrorStatus AcDbSymbolTable::add(AcDbSymbolTableRecord* record) {
    AcDbObjectId id;
    return add(id, record);
}

void AcDbSymbolTableRecord::takeLists(AcDbObject& changed) {
    auto* table = const_cast<AcDbSymbolTable*>(host_db::peek<AcDbSymbolTable>(changed.ownerId()));
    const CString& former = static_cast<AcDbSymbolTableRecord&>(changed).name_;
    if (table != nullptr && former != name_) {
        table->rename(*this, former, name_);
    }
}

void AcDbSymbolTable::takeLists(AcDbObject& changed) {
    auto& table = static_cast<AcDbSymbolTable&>(changed);
    records_ = std::move(table.records_);
    byName_ = std::move(table.byName_);
}

void AcDbSymbolTable::disown(const AcDbObject& owned) {
    // A table may own an extension dictionary as well.
    if (const auto* record = AcDbSymbolTableRecord::cast(&owned)) {
        host_db::eraseLast(records_, record->objectId());
        host_db::eraseLast(byName_[host_db::nameKey(record->name())], record->objectId());
    }
}

void AcDbSymbolTable::enter(const AcDbSymbolTableRecord& record) {
    records_.push_back(record.objectId());
    byName_[host_db::nameKey(record.name())].push_back(record.objectId());
}

void AcDbSymbolTable::rename(const AcDbSymbolTableRecord& record, const CString& from,
                             const ACHAR* to) {
    std::erase(byName_[host_db::nameKey(from)], record.objectId());
    byName_[host_db::nameKey(to)].push_back(record.objectId());
}

Acad::ErrorStatus AcDbSymbolTable::newIterator(AcDbSymbolTableIterator*& iterator,
                                               bool /*atBeginning*/, bool skipDeleted) const {
    std::vector<AcDbObjectId> ids;
    std::copy_if(records_.begin(), records_.end(), std::back_inserter(ids),
                 [&](AcDbObjectId id) { return !skipDeleted || id.isValid(); });
    iterator = new AcDbSymbolTableIterator(std::move(ids));
    return Acad::eOk;
}

Acad::ErrorStatus AcDbSymbolTableIterator::getRecordId(AcDbObjectId& id) const {
    id = objectId();
    return done() ? Acad::eInvalidIndex : Acad::eOk;
}

Acad::ErrorStatus AcDbSymbolTableIterator::getRecord(AcDbSymbolTableRecord*& record,
                                                     AcDb::OpenMode mode, bool openErased) const {
    return acdbOpenObject(record, objectId(), mode, openErased);
}
