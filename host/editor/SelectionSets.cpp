#include "editor/SelectionSets.h"

#include "database/AcDbDatabase.h"
#include "database/AcDbHostApplicationServices.h"
#include "database/OpenObject.h"
#include "editor/EditorCommand.h"
#include "editor/EntityFilter.h"
#include "editor/SelectionModes.h"
#include "editor/SelectionSet.h"
#include "platform/HostEvents.h"

#include <map>
#include <memory>

namespace host_ed {
namespace {

/// Tells the names of sets from those of entities, whose second number is 0.
constexpr std::int64_t kSetMark = 0x5353;

/// The sets in use. A set's name is a bare number that any caller hands back, so the process needs
/// one table of them.
struct OpenSets {
    std::map<std::int64_t, SelectionSet> sets;
    std::int64_t lastNumber = 0;
    /// The set that was asked for last, nullptr for none: sets are read entity by entity.
    SelectionSet* latest = nullptr;
    std::int64_t latestNumber = 0;
};

OpenSets& openSets() {
    static OpenSets sets;
    return sets;
}

SelectionSet* setOf(const ads_name name) {
    if (name == nullptr || name[1] != kSetMark) {
        return nullptr;
    }
    OpenSets& open = openSets();
    if (open.latest == nullptr || open.latestNumber != name[0]) {
        const auto it = open.sets.find(name[0]);
        open.latest = it == open.sets.end() ? nullptr : &it->second;
        open.latestNumber = name[0];
    }
    return open.latest;
}

bool isNil(const ads_name name) {
    return name == nullptr || (name[0] == 0 && name[1] == 0);
}

/// Enters a set and writes its name; false when there is no room for one more.
bool enterSet(SelectionSet set, ads_name name) {
    OpenSets& open = openSets();
    if (open.sets.size() >= kMaxSelectionSets) {
        return false;
    }
    open.sets.emplace(++open.lastNumber, std::move(set));
    name[0] = open.lastNumber;
    name[1] = kSetMark;
    return true;
}

void leaveSet(const ads_name name) {
    OpenSets& open = openSets();
    open.latest = nullptr;
    open.sets.erase(name[0]);
}

template<typename Length>
int lengthOf(const ads_name name, Length* length) {
    const SelectionSet* set = setOf(name);
    if (set == nullptr || length == nullptr) {
        return RTERROR;
    }
    *length = static_cast<Length>(set->size());
    return RTNORM;
}

/// The set that is to take an entity: the named one, or a new one for no name.
SelectionSet* setToFill(const ads_name name, ads_name result) {
    if (isNil(name)) {
        return enterSet(SelectionSet(), result) ? setOf(result) : nullptr;
    }
    SelectionSet* set = setOf(name);
    if (set != nullptr) {
        const ads_name same = {name[0], name[1]};
        result[0] = same[0];
        result[1] = same[1];
    }
    return set;
}

} // namespace

int openSelectionSets() {
    return static_cast<int>(openSets().sets.size());
}

} // namespace host_ed

int acedSSGet(const ACHAR* mode, const void* point1, const void* point2, const resbuf* filter,
              ads_name set) {
    set[0] = 0;
    set[1] = 0;
    const AcDbDatabase* database = acdbHostApplicationServices()->workingDatabase();
    host_ed::EditorSession* session = host_ed::currentSession();
    if (database == nullptr || session == nullptr || mode == nullptr) {
        return RTERROR;
    }
    const std::wstring name = host_ed::plainName(mode);
    const auto compiled = host_ed::EntityFilter::compile(filter, *database);
    auto selected = host_ed::candidatesOf(name, point1, point2, *database, *session);
    if (!compiled.has_value() || !selected.has_value()) {
        return RTERROR;
    }
    std::erase_if(*selected, [&](AcDbObjectId id) {
        const auto* entity = static_cast<const AcDbEntity*>(host_db::peekObject(id));
        return entity == nullptr || !compiled->passes(*entity);
    });
    if (selected->empty()) {
        return RTERROR;
    }
    selected->shrink_to_fit(); // it began with every candidate, and is kept
    const auto ids = std::make_shared<std::vector<AcDbObjectId>>(std::move(*selected));
    if (!host_ed::enterSet(host_ed::SelectionSet(ids), set)) {
        return RTERROR;
    }
    session->previous = ids;
    if (host::isListening()) {
        host::announce(L"select " + name + L" " + std::to_wstring(ids->size()));
    }
    return RTNORM;
}

int acedSSLength(const ads_name set, Adesk::Int32* length) {
    return host_ed::lengthOf(set, length);
}

int acedSSLength(const ads_name set, long* length) {
    return host_ed::lengthOf(set, length);
}

int acedSSName(const ads_name set, long index, ads_name entity) {
    const host_ed::SelectionSet* found = host_ed::setOf(set);
    if (found == nullptr || index < 0 || static_cast<std::size_t>(index) >= found->size()) {
        return RTERROR;
    }
    acdbGetAdsName(entity, found->at(static_cast<std::size_t>(index)));
    return RTNORM;
}

int acedSSFree(const ads_name set) {
    if (host_ed::setOf(set) == nullptr) {
        return RTERROR;
    }
    host_ed::leaveSet(set);
    if (host::isListening()) {
        host::announce(L"free");
    }
    return RTNORM;
}

int acedSSAdd(const ads_name entity, const ads_name set, ads_name result) {
    AcDbObjectId id;
    const bool isEmpty = host_ed::isNil(entity);
    if (!isEmpty && acdbGetObjectId(id, entity) != Acad::eOk) {
        return RTERROR;
    }
    host_ed::SelectionSet* target = host_ed::setToFill(set, result);
    if (target == nullptr) {
        return RTERROR;
    }
    if (!isEmpty) {
        target->add(id);
    }
    return RTNORM;
}

int acedSSDel(const ads_name entity, const ads_name set) {
    host_ed::SelectionSet* found = host_ed::setOf(set);
    const bool removed = found != nullptr && !host_ed::isNil(entity) && entity[1] == 0 &&
                         found->remove(AcDbObjectId::fromOldId(entity[0]));
    return removed ? RTNORM : RTERROR;
}

int acedSSMemb(const ads_name entity, const ads_name set) {
    const host_ed::SelectionSet* found = host_ed::setOf(set);
    const bool isMember = found != nullptr && !host_ed::isNil(entity) && entity[1] == 0 &&
                          found->contains(AcDbObjectId::fromOldId(entity[0]));
    return isMember ? RTNORM : RTERROR;
}
