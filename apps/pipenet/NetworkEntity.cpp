#include "NetworkEntity.h"

#include "records/XdataKeys.h"

#include <utility>

namespace pipenet {

std::optional<NetworkEntity> networkEntity(const AcDbObjectId& id) {
    constexpr std::pair<EntityKind, const wchar_t*> kinds[] = {
        {EntityKind::pipe, xdata::kPipeSystem},
        {EntityKind::well, xdata::kWellSystem},
        {EntityKind::tank, xdata::kTank}};
    for (const auto& [kind, key] : kinds) {
        CString text;
        if (ReadXdata(id, key, text) != 0) {
            return NetworkEntity{id, kind, text};
        }
    }
    return std::nullopt;
}

} // namespace pipenet
