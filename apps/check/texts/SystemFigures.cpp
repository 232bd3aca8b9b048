#include "HandleText.h"
#include "Systems.h"
#include "texts/TextSteps.h"

#include <algorithm>
#include <map>

namespace pipenet {

namespace {

using Laid = std::map<std::pair<int, std::string>, LaidLength>;

void keepExtremes(SystemFigures& figures, double elevation, const AcDbObjectId& pipe,
                  const AcGePoint3d& place) {
    if (!figures.lowest || elevation < figures.lowest->elevation) {
        figures.lowest = ExtremePoint{elevation, pipe, place};
    }
    if (!figures.highest || elevation > figures.highest->elevation) {
        figures.highest = ExtremePoint{elevation, pipe, place};
    }
}

/// Both ends of a pipe. Read from its own start, the upper end is the start unless it flows back.
void keepHeights(SystemFigures& figures, const AcDbObjectId& id) {
    const _Pipe pipe(id, CString());
    const PipeReading reading = readPipe(id, pipe.startPoint);
    const bool back = reading.flowReversed;
    keepExtremes(figures, back ? reading.downstream : reading.upstream, id, pipe.startPoint);
    keepExtremes(figures, back ? reading.upstream : reading.downstream, id, pipe.endPoint);
}

void count(SystemFigures& figures, EntityKind kind) {
    switch (kind) {
    case EntityKind::pipe:
        ++figures.pipes;
        break;
    case EntityKind::well:
        ++figures.wells;
        break;
    case EntityKind::tank:
        ++figures.tanks;
        break;
    }
}

void addEntities(TextCheck& check, std::vector<SystemFigures>& systems) {
    for (const CheckedEntity& entity : check.context.entities) {
        SystemFigures& figures = systems[static_cast<std::size_t>(entity.system)];
        count(figures, entity.kind);
        if (entity.kind == EntityKind::pipe && check.unreadable.heights.count(entity.id) == 0) {
            keepHeights(figures, entity.id);
        }
    }
}

/// By size, then by material.
void addLengths(SystemFigures& figures, const CheckReport& report) {
    Laid laid;
    for (const CheckedNetwork& network : report.networks) {
        if (network.system != figures.name) {
            continue;
        }
        ++figures.networks;
        for (const CheckedRun& run : network.runs) {
            LaidLength& length = laid[{run.diameter, run.material}];
            length.diameter = run.diameter;
            length.material = run.material;
            ++length.runs;
            length.length += run.length;
            figures.length += run.length;
        }
    }
    for (const auto& [key, length] : laid) {
        figures.lengths.push_back(length);
    }
}

} // namespace

void addSystemFigures(TextCheck& check) {
    std::vector<SystemFigures> systems;
    for (const CheckedSystem& system : check.context.systems) {
        SystemFigures figures;
        figures.name = system.utf8Name;
        figures.flow = system.flow;
        if (CString flag; PelGetSystemFlag(flag, system.name) != 0) {
            figures.flag = utf8(flag);
        }
        addLengths(figures, check.report);
        systems.push_back(std::move(figures));
    }
    addEntities(check, systems);
    for (SystemFigures& figures : systems) {
        if (!figures.name.empty()) {
            check.report.systems.push_back(std::move(figures));
        }
    }
}

} // namespace pipenet
