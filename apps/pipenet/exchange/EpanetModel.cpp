// Reads water supply models in EPANET input format.
#include "exchange/ModelBuilder.h"
#include "exchange/PipeMaterials.h"
#include "Messages.h"

#include <algorithm>
#include <set>

namespace pipenet {

namespace {

struct EpanetUnits {
    double length = 1.0;   ///< metres of a foot or a metre
    double diameter = 1.0; ///< millimetres of an inch or a millimetre
};

EpanetUnits unitsOf(const ModelFile& file) {
    static const std::set<std::string> feet{"CFS", "GPM", "MGD", "IMGD", "AFD"};
    static const std::set<std::string> metres{"LPS", "LPM", "MLD", "CMH", "CMD", "CMS"};
    constexpr double inch = 25.4;
    const std::string flow = file.option("UNITS", "GPM");
    if (feet.count(flow) > 0) {
        return {kFoot, inch};
    }
    if (metres.count(flow) == 0) {
        file.fail(textOf({0, "UNITS {} is none of CFS, GPM, MGD, IMGD, AFD, LPS, LPM, MLD, CMH, "
                             "CMD, CMS"},
                         flow));
    }
    return {};
}

void addNodes(ModelBuilder& builder, const char* section, ModelNodeKind kind, double unit) {
    const ModelFile& file = builder.file();
    for (const ModelRow& row : file.rows(section)) {
        builder.addNode(row, kind).bottom = file.number(row, 1, 0.0) * unit;
    }
}

int diameterOf(const ModelBuilder& builder, const ModelRow& row, std::size_t place, double unit) {
    builder.length(row, place, unit); // a pipe without any width carries nothing
    return builder.millimetres(row, place, unit);
}

void addPipes(ModelBuilder& builder, const EpanetUnits& units) {
    const ModelFile& file = builder.file();
    const bool hazenWilliams = file.option("HEADLOSS", "H-W") == "H-W";
    for (const ModelRow& row : file.rows("PIPE")) {
        ModelLink& link = builder.addLink(row);
        link.length = builder.length(row, 3, units.length);
        link.diameter = diameterOf(builder, row, 4, units.diameter);
        const double roughness = file.number(row, 5);
        link.material = hazenWilliams ? materialOfHazenWilliams(roughness) : "";
    }
}

void addValves(ModelBuilder& builder, const EpanetUnits& units) {
    for (const ModelRow& row : builder.file().rows("VALV")) {
        ModelLink& link = builder.addLink(row);
        link.device = ModelDevice::valve;
        link.diameter = diameterOf(builder, row, 3, units.diameter);
    }
}

/// A pump has no diameter: it is drawn as wide as the widest pipe at its nodes.
void addPumps(ModelBuilder& builder) {
    std::vector<int> widest(builder.model().nodes.size(), 0);
    for (const ModelLink& link : builder.model().links) {
        widest[link.from] = std::max(widest[link.from], link.diameter);
        widest[link.to] = std::max(widest[link.to], link.diameter);
    }
    for (const ModelRow& row : builder.file().rows("PUMP")) {
        ModelLink& link = builder.addLink(row);
        link.device = ModelDevice::pump;
        link.diameter = std::max(widest[link.from], widest[link.to]);
    }
}

/// A reservoir has a head and no height: its pipe is laid level up to it.
void setHeights(PipeModel& model) {
    const auto isReservoir = [&model](std::size_t node) {
        return model.nodes[node].kind == ModelNodeKind::reservoir;
    };
    for (ModelLink& link : model.links) {
        const std::size_t start = isReservoir(link.from) ? link.to : link.from;
        const std::size_t end = isReservoir(link.to) ? link.from : link.to;
        link.startElevation = model.nodes[start].bottom;
        link.endElevation = model.nodes[end].bottom;
    }
}

} // namespace

PipeModel readEpanetModel(const ModelFile& file) {
    ModelBuilder builder(file, ModelFormat::epanet);
    const EpanetUnits units = unitsOf(file);
    builder.model().mapUnit = units.length;
    addNodes(builder, "JUNC", ModelNodeKind::junction, units.length);
    addNodes(builder, "RESE", ModelNodeKind::reservoir, units.length);
    addNodes(builder, "TANK", ModelNodeKind::tank, units.length);
    addPipes(builder, units);
    addValves(builder, units);
    addPumps(builder);
    setHeights(builder.model());
    return builder.finish();
}

} // namespace pipenet
