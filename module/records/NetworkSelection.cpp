#include "records/NetworkSelection.h"

namespace tkvlt {

namespace {

constexpr int kOperator = -4;
constexpr int kXdataFilter = -3;
constexpr int kApplicationName = 1001;

/// Appends one chain behind another and moves the tail to its last item.
void Append(resbuf*& tail, resbuf* items) {
    tail->rbnext = items;
    while (tail->rbnext != nullptr) {
        tail = tail->rbnext;
    }
}

resbuf* BuildFilter(std::initializer_list<const wchar_t*> applications) {
    resbuf* filter = acutBuildList(kOperator, L"<or", RTNONE);
    resbuf* tail = filter;
    for (const wchar_t* application : applications) {
        Append(tail, acutBuildList(kXdataFilter, kApplicationName, application, RTNONE));
    }
    Append(tail, acutBuildList(kOperator, L"or>", RTNONE));
    return filter;
}

} // namespace

NetworkSelection::NetworkSelection(std::initializer_list<const wchar_t*> applications) {
    resbuf* filter = BuildFilter(applications);
    selected_ = acedSSGet(L"X", nullptr, nullptr, filter, name_) == RTNORM;
    acutRelRb(filter);
}

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
