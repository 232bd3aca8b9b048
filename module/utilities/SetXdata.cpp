#include "utilities/SetXdata.h"

#include "records/OwnedChain.h"
#include "utilities/HoldsText.h"

namespace {

bool IsRegistered(const ACHAR* application) {
    return tkvlt::OwnedChain(acdbTblSearch(L"APPID", application)) != nullptr;
}

} // namespace

int PelSetXdata(AcDbObjectId entity, resbuf* chain) {
    if (!tkvlt::HoldsText(chain)) {
        return 0;
    }
    const ACHAR* application = chain->resval.rstring;
    if (!IsRegistered(application) && acdbRegApp(application) != RTNORM) {
        return 0;
    }
    AcDbObject* object = nullptr;
    if (acdbOpenAcDbObject(object, entity, AcDb::kForWrite) != Acad::eOk) {
        return 0;
    }
    const Acad::ErrorStatus status = object->setXData(chain);
    object->close();
    return status == Acad::eOk ? 1 : 0;
}

int PelSetXdata(ads_name entity, resbuf* chain) {
    AcDbObjectId id;
    return acdbGetObjectId(id, entity) == Acad::eOk ? PelSetXdata(id, chain) : 0;
}
