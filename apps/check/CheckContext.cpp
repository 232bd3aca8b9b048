#include "CheckContext.h"

#include "HandleText.h"
#include "records/NetworkSelection.h"
#include "records/XdataKeys.h"
#include "Systems.h"

#include <fmt/format.h>

namespace pipenet {

namespace {

/// A tank is marked by one text and names its system under another.
CString systemNameOf(const NetworkEntity& entity) {
    return entity.kind == EntityKind::tank ? XdataText(entity.id, xdata::kTankSystem)
                                           : entity.systemName;
}

/// Gathers entities and numbers their systems.
class ContextReader {
public:
    ContextReader(CheckContext& context, const std::string& onlySystem)
        : context_(context), onlySystem_(onlySystem) {}

    void add(const NetworkEntity& entity) {
        const CString name = systemNameOf(entity);
        if (!onlySystem_.empty() && utf8(name) != onlySystem_) {
            return;
        }
        const auto [number, isNew] =
            numbers_.try_emplace(name, static_cast<int>(context_.systems.size()));
        if (isNew) {
            context_.systems.push_back({name, utf8(name), PelGetDirectionSytle(name)});
        }
        context_.places.emplace(entity.id, static_cast<int>(context_.entities.size()));
        context_.entities.push_back({entity.id, entity.kind, number->second});
    }

private:
    CheckContext& context_;
    const std::string& onlySystem_;
    std::unordered_map<CString, int> numbers_;
};

} // namespace

const CheckedEntity* CheckContext::find(const AcDbObjectId& id) const {
    const auto place = places.find(id);
    return place == places.end() ? nullptr : &entities[static_cast<std::size_t>(place->second)];
}

int CheckContext::systemNamed(const CString& name) const {
    for (std::size_t i = 0; i < systems.size(); ++i) {
        if (systems[i].name == name) {
            return static_cast<int>(i);
        }
    }
    return -1;
}

CheckContext readContext(const std::string& onlySystem) {
    CheckContext context;
    context.onlySystem = onlySystem;
    ContextReader reader(context, onlySystem);
    const tkvlt::NetworkSelection selection{xdata::kWellSystem, xdata::kPipeSystem, xdata::kTank};
    for (Adesk::Int32 i = 0; i < selection.Length(); ++i) {
        if (const auto entity = networkEntity(selection.At(i))) {
            reader.add(*entity);
        }
    }
    return context;
}

std::string namesOf(const std::vector<AcDbObjectId>& entities, std::size_t most) {
    std::string names;
    for (std::size_t i = 0; i < entities.size() && i < most; ++i) {
        names += (i == 0 ? "" : ", ") + nameOf(entities[i]);
    }
    if (entities.size() > most) {
        names += fmt::format(" and {} more", entities.size() - most);
    }
    return names;
}

} // namespace pipenet
