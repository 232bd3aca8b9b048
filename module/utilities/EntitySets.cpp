#include "utilities/EntitySets.h"

namespace {

/// Calls `visit` with each entity of the set whose name and id the host gives.
template<typename Visit>
void ForEachEntity(const ads_name set, Adesk::Int32 length, const Visit& visit) {
    for (Adesk::Int32 i = 0; i < length; ++i) {
        ads_name name = {0, 0};
        AcDbObjectId id;
        if (acedSSName(set, i, name) == RTNORM && acdbGetObjectId(id, name) == Acad::eOk) {
            visit(id);
        }
    }
}

bool CarriesValue(const ads_name name, const CString& key, const CString& value) {
    CString carried;
    GetXdata(name, key, carried);
    return carried.Compare(value) == 0;
}

} // namespace

void PelPurePipeSS(ads_name set, CString key, CString value) {
    Adesk::Int32 length = 0;
    acedSSLength(set, &length);
    for (Adesk::Int32 i = 0; i < length; ++i) {
        ads_name name = {0, 0};
        if (acedSSName(set, i, name) == RTNORM && !CarriesValue(name, key, value)) {
            acedSSDel(name, set);
            --i;
            --length;
        }
    }
}

int PelSS2IdArr(ads_name set, AcDbObjectIdArray& ids) {
    Adesk::Int32 length = 0;
    if (acedSSLength(set, &length) != RTNORM || length <= 0) {
        return 0;
    }
    ForEachEntity(set, length, [&ids](const AcDbObjectId& id) { ids.append(id); });
    return 1;
}

void PelDeleteSS(ads_name set) {
    Adesk::Int32 length = 0;
    if (acedSSLength(set, &length) == RTNORM) {
        ForEachEntity(set, length, [](const AcDbObjectId& id) { EraseObject(id); });
    }
}
