#include "records/NetworkSelection.h"

#include "records/OwnedChain.h"

namespace tkvlt {

namespace {

constexpr int kOperator = -4;
constexpr int kXdataFilter = -3;
constexpr int kApplicationName = 1001;

/// Hands a chain over to the last item of another, and gives the item that is last then.
resbuf* Append(resbuf* tail, OwnedChain items) {
    tail->rbnext = items.release();
    while (tail->rbnext != nullptr) {
        tail = tail->rbnext;
    }
    return tail;
}

OwnedChain BuildFilter(std::initializer_list<const wchar_t*> applications) {
    OwnedChain filter(acutBuildList(kOperator, L"<or", RTNONE));
    resbuf* tail = filter.get();
    for (const wchar_t* application : applications) {
        tail = Append(
            tail, OwnedChain(acutBuildList(kXdataFilter, kApplicationName, application, RTNONE)));
    }
    Append(tail, OwnedChain(acutBuildList(kOperator, L"or>", RTNONE)));
    return filter;
}

} // namespace

NetworkSelection::NetworkSelection(std::initializer_list<const wchar_t*> applications)
    : selected_(acedSSGet(L"X", nullptr, nullptr, BuildFilter(applications).get(), name_) ==
                RTNORM) {}

NetworkSelection::~NetworkSelection() {
    if (selected_) {
        acedSSFree(name_);
    }
}

Adesk::Int32 NetworkSelection::Length() const {
    Adesk::Int32 length = 0;
    if (selected_) {
        acedSSLength(name_, &length);
    }
    return length;
}

AcDbObjectId NetworkSelection::At(Adesk::Int32 index) const {
    ads_name entity = {0, 0};
    AcDbObjectId id;
    acedSSName(name_, index, entity);
    acdbGetObjectId(id, entity);
    return id;
}

} // namespace tkvlt
