#include "database/AcDbDictionary.h"

#include "database/AcDbDatabase.h"
#include "database/DictionaryHolder.h"
#include "database/NameKey.h"
#include "database/OpenObject.h"

#include <algorithm>
#include <utility>

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
    if (!host_db::holdsDictionaries(*database())) {
        return Acad::eNotApplicable;
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

namespace {

/// A name that nobody gave.
CString freeName(const std::unordered_map<std::wstring, std::size_t>& taken) {
    std::size_t number = taken.size();
    std::wstring name;
    do {
        name = L"*A" + std::to_wstring(number++);
    } while (taken.contains(host_db::nameKey(name.c_str())));
    return CString(name.c_str());
}

} // namespace

void AcDbDictionary::enter(const ACHAR* name, AcDbObjectId id) {
    const auto [it, isNew] = byName_.try_emplace(host_db::nameKey(name), entries_.size());
    if (isNew) {
        entries_.push_back({name, id});
        return;
    }
    const AcDbObjectId former = std::exchange(entries_[it->second], {name, id}).id;
    if (former != id && former.isErased()) {
        // It may be brought back, and would have no name then.
        enter(freeName(byName_), former);
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

bool AcDbDictionary::owns(AcDbObjectId id) const {
    const AcDbObject* object = host_db::peekObject(id);
    return object != nullptr && (object->ownerId() == objectId() || object->ownerId().isNull());
}

namespace {

/// Erases one object or brings it back; a dictionary by itself, what is below it later.
void eraseAlone(AcDbObject& object, bool erasing, std::vector<AcDbDictionary*>& below) {
    if (AcDbDictionary* nested = AcDbDictionary::cast(&object)) {
        nested->AcDbObject::erase(erasing);
        below.push_back(nested);
    } else {
        object.erase(erasing);
    }
    object.close();
}

} // namespace

void AcDbDictionary::eraseOwned(std::vector<AcDbDictionary*>& below) {
    for (const Entry& entry : entries_) {
        AcDbObject* object = nullptr;
        if (owns(entry.id) && acdbOpenAcDbObject(object, entry.id, AcDb::kForWrite) == Acad::eOk) {
            eraseAlone(*object, true, below);
            erasedAlong_.push_back(entry.id);
        }
    }
}

void AcDbDictionary::bringBackOwned(std::vector<AcDbDictionary*>& below) {
    for (const AcDbObjectId id : erasedAlong_) {
        AcDbObject* object = nullptr;
        if (acdbOpenAcDbObject(object, id, AcDb::kForWrite, true) == Acad::eOk) {
            eraseAlone(*object, false, below);
        }
    }
    erasedAlong_.clear();
}

Acad::ErrorStatus AcDbDictionary::erase(bool erasing) {
    if (!objectId().isNull() && objectId() == database()->namedObjectsDictionaryId()) {
        return Acad::eCannotBeErasedByCaller;
    }
    const Acad::ErrorStatus status = AcDbObject::erase(erasing);
    if (status != Acad::eOk) {
        return status;
    }
    // Dictionaries of damaged files may lie in one another to any depth.
    std::vector<AcDbDictionary*> below{this};
    while (!below.empty()) {
        AcDbDictionary* dictionary = below.back();
        below.pop_back();
        erasing ? dictionary->eraseOwned(below) : dictionary->bringBackOwned(below);
    }
    return Acad::eOk;
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
