#include "InfoCommand.h"

#include "HandleText.h"
#include "Systems.h"
#include "TextTable.h"
#include "TKVltSearchModule18.h"

#include <fmt/format.h>
#include <unordered_map>

namespace pipenet {

namespace {

struct System {
    CString name;
    int pipes = 0;
    int wells = 0;
};

struct Count {
    std::vector<System> systems;
    std::size_t tanks = 0;
    std::size_t entities = 0;
};

Count countEntities(const Drawing& drawing) {
    Count count;
    count.entities = drawing.entities().size();
    std::unordered_map<CString, std::size_t> places;
    for (const NetworkEntity& entity : drawing.networkEntities()) {
        if (entity.kind == EntityKind::tank) {
            ++count.tanks;
            continue;
        }
        const auto [place, isNew] = places.emplace(entity.systemName, count.systems.size());
        if (isNew) {
            count.systems.push_back({entity.systemName});
        }
        System& system = count.systems[place->second];
        ++(entity.kind == EntityKind::pipe ? system.pipes : system.wells);
    }
    return count;
}

const char* flowOf(const System& system) {
    const int kind = PelGetDirectionSytle(system.name);
    return kind == kGravityFlow ? "gravity" : kind == kPressureFlow ? "pressure" : "unknown";
}

std::string flagOf(const System& system) {
    CString flag;
    return PelGetSystemFlag(flag, system.name) != 0 ? utf8(flag) : std::string();
}

std::string infoJson(const Count& count) {
    Json systems = Json::array();
    for (const System& system : count.systems) {
        systems.push_back({{"name", textJson(system.name)},
                           {"flow", flowOf(system)},
                           {"flag", flagOf(system)},
                           {"pipes", system.pipes},
                           {"wells", system.wells}});
    }
    std::string text;
    appendJson(text, {{"systems", systems}, {"tanks", count.tanks}, {"entities", count.entities}});
    return text + '\n';
}

std::string counted(std::size_t number, const char* one, const char* many) {
    return fmt::format("{} {}", number, number == 1 ? one : many);
}

std::string infoTable(const Drawing& drawing, const Count& count) {
    std::string text = fmt::format("{}: {}, {}, {}\n", drawing.name(),
                                   counted(count.entities, "entity", "entities"),
                                   counted(count.systems.size(), "pipe system", "pipe systems"),
                                   counted(count.tanks, "tank", "tanks"));
    TextTable table({{"System"}, {"Flow"}, {"Flag"}, {"Pipes", true}, {"Wells", true}});
    for (const System& system : count.systems) {
        table.add({utf8(system.name), flowOf(system), flagOf(system), std::to_string(system.pipes),
                   std::to_string(system.wells)});
    }
    return count.systems.empty() ? text : text + '\n' + table.text();
}

} // namespace

Answer runInfo(const Drawing& drawing, const Options& options) {
    Answer answer;
    const Stopwatch watch;
    const Count count = countEntities(drawing);
    answer.timing.searchMs = watch.milliseconds();
    answer.isJson = options.format == Format::json;
    answer.text = answer.isJson ? infoJson(count) : infoTable(drawing, count);
    return answer;
}

} // namespace pipenet
