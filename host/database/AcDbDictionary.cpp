#include "database/AcDbDictionary.h"

#include "database/AcDbDatabase.h"
#include "database/NameKey.h"
#include "database/OpenObject.h"

#include <algorithm>

ACRX_DEFINE_MEMBERS(AcDbDictionary, AcDbObject, L"DICTIONARY")

std::unique_ptr<AcDbObject> AcDbDictionary::savedCopy() const {
    return std::unique_ptr<AcDbObject>(new AcDbDictionary(*this));
}

AcDbObjectId AcDbDictionary::find(const ACHAR* name) const {
    const auto it = byName_.find(host_db::nameKey(name));
    return it != byName_.end() && entries_[it->second].id.isValid() ? entries_[it->second].id
                                                                    : AcDbObjectId();
}

Acad::ErrorStatus AcDbDictionary::getAt(const ACHAR* name, AcDbObjectId& id) const {
    const AcDbObjectId found = find(name);
    if (found.isNull()) {
        return Acad::eKeyNotFound;
    }
    id = found;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbDictionary::getAt(const ACHAR* name, AcDbObject*& object,
                                        AcDb::OpenMode mode) const {
    object = nullptr;
    const AcDbObjectId id = find(name);
    return id.isNull() ? Acad::eKeyNotFound : acdbOpenAcDbObject(object, id, mode);
}

bool AcDbDictionary::has(const ACHAR* name) const {
    return !find(name).isNull();
}

bool AcDbDictionary::has(AcDbObjectId id) const {
    CString name;
    return nameAt(id, name) == Acad::eOk;
}

Acad::ErrorStatus AcDbDictionary::nameAt(AcDbObjectId id, CString& name) const {
    for (const Entry& entry : entries_) {
        if (entry.id == id && id.isValid()) {
            name = entry.name;
            return Acad::eOk;
        }
    }
    return Acad::eKeyNotFound;
}

Adesk::UInt32 AcDbDictionary::numEntries() const {
    return static_cast<Adesk::UInt32>(std::count_if(
        entries_.begin(), entries_.end(), [](const Entry& entry) { return entry.id.isValid(); }));
}

Acad::ErrorStatus AcDbDictionary::setAt(const ACHAR* name, AcDbObject* object, AcDbObjectId& id) {
    if (object == nullptr) {
        return Acad::eNullObjectPointer;
    }
    if (name == nullptr || *name == L'\0') {
        return Acad::eInvalidKey;
    }
    if (objectId().isNull()) {
        return Acad::eNotInDatabase;
    }
    AcDbObjectId target = object->objectId();
    if (!target.isNull() && target.database() != database()) {
        return Acad::eWrongDatabase;
    }
    const AcDbObjectId old = find(name);
    AcDbObject* replaced = nullptr;
    if (!old.isNull() && old != target) {
        const Acad::ErrorStatus status = acdbOpenAcDbObject(replaced, old, AcDb::kForWrite);
        if (status != Acad::eOk) {
            return status;
        }
    }
    Acad::ErrorStatus status = prepareWrite();
    if (status == Acad::eOk && target.isNull()) {
        status = database()->addAcDbObject(target, object, objectId());
    }
    if (replaced != nullptr) {
        if (status == Acad::eOk) {
            replaced->erase();
        }
        replaced->close();
    }
    if (status == Acad::eOk) {
        enter(name, target);
        id = target;
    }
    return status;
}

void AcDbDictionary::enter(const ACHAR* name, AcDbObjectId id) {
    const auto [it, isNew] = byName_.try_emplace(host_db::nameKey(name), entries_.size());
    if (isNew) {
        entries_.push_back({name, id});
    } else {
        entries_[it->second] = {name, id};
    }
}

void AcDbDictionary::drop(std::size_t index) {
    entries_.erase(entries_.begin() + static_cast<std::ptrdiff_t>(index));
    byName_.clear();
    for (std::size_t i = 0; i < entries_.size(); ++i) {
        byName_.emplace(host_db::nameKey(entries_[i].name), i);
    }
}

Acad::ErrorStatus AcDbDictionary::remove(const ACHAR* name) {
    const auto it = byName_.find(host_db::nameKey(name));
    if (it == byName_.end() || !entries_[it->second].id.isValid()) {
        return Acad::eKeyNotFound;
    }
    const Acad::ErrorStatus status = prepareWrite();
    if (status == Acad::eOk) {
        drop(it->second);
    }
    return status;
}

Acad::ErrorStatus AcDbDictionary::remove(AcDbObjectId id) {
    CString name;
    const Acad::ErrorStatus status = nameAt(id, name);
    return status == Acad::eOk ? remove(name) : status;
}

AcDbDictionaryIterator* AcDbDictionary::newIterator() const {
    std::vector<Entry> entries;
    std::copy_if(entries_.begin(), entries_.end(), std::back_inserter(entries),
                 [](const Entry& entry) { return entry.id.isValid(); });
    return new AcDbDictionaryIterator(std::move(entries));
}

bool AcDbDictionaryIterator::next() {
    ++index_;
    return !done();
}

Acad::ErrorStatus AcDbDictionaryIterator::getObject(AcDbObject*& object,
                                                    AcDb::OpenMode mode) const {
    return acdbOpenAcDbObject(object, objectId(), mode);
}
