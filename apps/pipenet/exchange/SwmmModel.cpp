// Reads drainage models in SWMM input format.
#include "exchange/ModelBuilder.h"
#include "exchange/PipeMaterials.h"
#include "Messages.h"

#include <set>

namespace pipenet {

namespace {

/// How the model says where a conduit's end lies at its node.
struct SwmmUnits {
    double unit = 1.0;            ///< metres of a foot or a metre
    bool offsetsAreDepths = true; ///< above the node's bottom; else heights
};

SwmmUnits unitsOf(const ModelFile& file) {
    static const std::set<std::string> feet{"CFS", "GPM", "MGD"};
    static const std::set<std::string> metres{"CMS", "LPS", "MLD"};
    const std::string flow = file.option("FLOW_UNITS", "CFS");
    const std::string offsets = file.option("LINK_OFFSETS", "DEPTH");
    if (feet.count(flow) == 0 && metres.count(flow) == 0) {
        file.fail(textOf({0, "FLOW_UNITS {} is none of CFS, GPM, MGD, CMS, LPS, MLD"}, flow));
    }
    if (offsets != "DEPTH" && offsets != "ELEVATION") {
        file.fail(textOf({0, "LINK_OFFSETS {} is neither DEPTH nor ELEVATION"}, offsets));
    }
    return {feet.count(flow) > 0 ? kFoot : 1.0, offsets == "DEPTH"};
}

void addNodes(ModelBuilder& builder, const char* section, ModelNodeKind kind, double unit) {
    const ModelFile& file = builder.file();
    // Of outfalls and dividers the third word is something else than a depth.
    const bool hasDepth = std::string(section) == "JUNC" || std::string(section) == "STOR";
    for (const ModelRow& row : file.rows(section)) {
        ModelNode& node = builder.addNode(row, kind);
        node.bottom = file.number(row, 1) * unit;
        const double depth = hasDepth ? file.number(row, 2, 0.0) * unit : 0.0;
        if (depth > 0.0) {
            node.ground = node.bottom + depth;
        }
    }
}

double endHeight(const ModelBuilder& builder, const ModelRow& row, std::size_t place, double bottom,
                 const SwmmUnits& units) {
    const bool atBottom = place >= row.words.size() || row.words[place] == "*";
    if (atBottom) {
        return bottom;
    }
    const double offset = builder.file().number(row, place) * units.unit;
    return units.offsetsAreDepths ? bottom + offset : offset;
}

void addConduits(ModelBuilder& builder, const SwmmUnits& units) {
    const ModelFile& file = builder.file();
    for (const ModelRow& row : file.rows("COND")) {
        ModelLink& link = builder.addLink(row);
        const PipeModel& model = builder.model();
        link.length = builder.length(row, 3, units.unit);
        link.material = materialOfManning(file.number(row, 4));
        link.startElevation = endHeight(builder, row, 5, model.nodes[link.from].bottom, units);
        link.endElevation = endHeight(builder, row, 6, model.nodes[link.to].bottom, units);
    }
}

void readSections(ModelBuilder& builder, double unit) {
    const ModelFile& file = builder.file();
    std::set<std::string> seen;
    int surveyed = 0;
    for (const ModelRow& row : file.rows("XSEC")) {
        file.need(row, 3);
        ModelLink* link = builder.link(file.name(row, 0));
        if (link == nullptr) {
            continue;
        }
        seen.insert(link->name);
        const std::string shape = capitals(row.words[1]);
        if (shape == "IRREGULAR" || shape == "STREET") {
            ++surveyed;
            continue;
        }
        link->diameter = builder.millimetres(row, 2, unit * 1000.0);
    }
    for (const ModelLink& link : builder.model().links) {
        if (seen.count(link.name) == 0) {
            file.fail(link.line, textOf({0, "the conduit {} has no cross-section"}, link.name));
        }
    }
    if (surveyed > 0) {
        builder.note(textOf(
            {0, "conduits with a surveyed section have no height, and diameter 0 ({} of them)"},
            surveyed));
    }
}

void noteOtherLinks(ModelBuilder& builder) {
    constexpr std::pair<const char*, const char*> kinds[] = {
        {"PUMP", "pumps"}, {"ORIF", "orifices"}, {"WEIR", "weirs"}, {"OUTL", "outlets"}};
    for (const auto& [section, name] : kinds) {
        const std::size_t count = builder.file().rows(section).size();
        if (count > 0) {
            builder.note(textOf({0, "{} are no pipes and are left out ({} of them)"}, name, count));
        }
    }
}

} // namespace

PipeModel readSwmmModel(const ModelFile& file) {
    ModelBuilder builder(file, ModelFormat::swmm);
    const SwmmUnits units = unitsOf(file);
    builder.model().mapUnit = units.unit;
    addNodes(builder, "JUNC", ModelNodeKind::junction, units.unit);
    addNodes(builder, "OUTF", ModelNodeKind::outfall, units.unit);
    addNodes(builder, "DIVI", ModelNodeKind::junction, units.unit);
    addNodes(builder, "STOR", ModelNodeKind::storage, units.unit);
    addConduits(builder, units);
    readSections(builder, units.unit);
    noteOtherLinks(builder);
    return builder.finish();
}

} // namespace pipenet
