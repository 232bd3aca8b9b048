#include "database/AcDbXrecord.h"

#include <algorithm>

ACRX_DEFINE_MEMBERS(AcDbXrecord, AcDbObject, L"XRECORD")

namespace {

bool canBeStored(const host_db::ResultItem& item) {
    const host_db::ValueKind kind = host_db::valueKind(item.type);
    return item.type >= 0 && item.type < RTNONE && kind != host_db::ValueKind::None &&
           kind != host_db::ValueKind::Unknown;
}

} // namespace

AcRxObject* AcDbXrecord::clone() const {
    return new AcDbXrecord(*this);
}

Acad::ErrorStatus AcDbXrecord::setFromRbChain(const resbuf& chain, AcDbDatabase* /*database*/) {
    host_db::ResultItems items = host_db::itemsOf(&chain);
    if (!std::all_of(items.begin(), items.end(), canBeStored)) {
        return Acad::eInvalidResBuf;
    }
    const Acad::ErrorStatus status = prepareWrite();
    if (status == Acad::eOk) {
        items_ = std::move(items);
    }
    return status;
}

Acad::ErrorStatus AcDbXrecord::rbChain(resbuf** chain, AcDbDatabase* /*database*/) const {
    if (chain == nullptr) {
        return Acad::eInvalidInput;
    }
    *chain = host_db::chainOf(items_);
    return Acad::eOk;
}
