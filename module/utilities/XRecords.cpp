#include "utilities/XRecords.h"

#include "records/OwnedChain.h"
#include "utilities/DocumentLock.h"
#include "utilities/HoldsText.h"

namespace {

using tkvlt::DocumentLock;
using tkvlt::HoldsText;

constexpr int kTextItem = 8;

Acad::ErrorStatus OpenNamedObjects(AcDbDictionary*& root, AcDb::OpenMode mode) {
    const AcDbDatabase* drawing = acdbHostApplicationServices()->workingDatabase();
    return drawing != nullptr ? drawing->getNamedObjectsDictionary(root, mode) : Acad::eNoDatabase;
}

/// Opens what stands under the name in `dictionary`; what is of another kind is closed again.
template<typename Kind>
Acad::ErrorStatus OpenEntry(const AcDbDictionary* dictionary, const CString& name,
                            AcDb::OpenMode mode, Kind*& entry) {
    AcDbObject* object = nullptr;
    const Acad::ErrorStatus status = dictionary->getAt(name, object, mode);
    if (status != Acad::eOk) {
        return status;
    }
    entry = Kind::cast(object);
    if (entry == nullptr) {
        object->close();
        return Acad::eNotThatKindOfClass;
    }
    return Acad::eOk;
}

/// The same for write, and only a name that is not there gets a new entry. How far the host came
/// with an entry that it refused is not known, so that one is not freed.
template<typename Kind>
Acad::ErrorStatus OpenOrMakeEntry(AcDbDictionary* dictionary, const CString& name, Kind*& entry) {
    const Acad::ErrorStatus status = OpenEntry(dictionary, name, AcDb::kForWrite, entry);
    if (status != Acad::eKeyNotFound) {
        return status;
    }
    entry = new Kind;
    AcDbObjectId id;
    return dictionary->setAt(name, entry, id);
}

Acad::ErrorStatus OpenOrMakeRecord(const CString& dictionaryName, const CString& recordName,
                                   AcDbXrecord*& record) {
    AcDbDictionary* root = nullptr;
    Acad::ErrorStatus status = OpenNamedObjects(root, AcDb::kForWrite);
    if (status != Acad::eOk) {
        return status;
    }
    AcDbDictionary* dictionary = nullptr;
    status = OpenOrMakeEntry(root, dictionaryName, dictionary);
    root->close();
    if (status != Acad::eOk) {
        return status;
    }
    status = OpenOrMakeEntry(dictionary, recordName, record);
    dictionary->close();
    return status;
}

Acad::ErrorStatus OpenRecord(const CString& dictionaryName, const CString& recordName,
                             AcDbXrecord*& record) {
    AcDbDictionary* root = nullptr;
    Acad::ErrorStatus status = OpenNamedObjects(root, AcDb::kForRead);
    if (status != Acad::eOk) {
        return status;
    }
    AcDbDictionary* dictionary = nullptr;
    status = OpenEntry(root, dictionaryName, AcDb::kForRead, dictionary);
    root->close();
    if (status != Acad::eOk) {
        return status;
    }
    status = OpenEntry(dictionary, recordName, AcDb::kForRead, record);
    dictionary->close();
    return status;
}

} // namespace

int PelSetXRecord(CString dictionaryName, CString recordName, CString value) {
    const DocumentLock lock(AcAp::kWrite);
    AcDbXrecord* record = nullptr;
    if (OpenOrMakeRecord(dictionaryName, recordName, record) != Acad::eOk) {
        return 0;
    }
    const tkvlt::OwnedChain chain(acutBuildList(kTextItem, value.GetString(), 0));
    const Acad::ErrorStatus status = record->setFromRbChain(*chain);
    record->close();
    return status == Acad::eOk ? 1 : 0;
}

int PelGetXRecord(CString dictionaryName, CString recordName, CString& value) {
    const DocumentLock lock(AcAp::kRead);
    AcDbXrecord* record = nullptr;
    if (OpenRecord(dictionaryName, recordName, record) != Acad::eOk) {
        return 0;
    }
    resbuf* items = nullptr;
    const Acad::ErrorStatus status = record->rbChain(&items);
    record->close();
    const tkvlt::OwnedChain chain(items);
    const bool isRead = status == Acad::eOk && HoldsText(chain.get());
    if (isRead) {
        value = chain->resval.rstring;
    }
    return isRead ? 1 : 0;
}
