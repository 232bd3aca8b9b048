#include "town/DrawingFrame.h"

#include <array>
#include <charconv>

namespace benchmark_town {

namespace {

constexpr std::array kApplications = {"ACAD",     "管道系统", "管径",     "管材",
                                      "坡度",     "起点标高", "终点标高", "水流方向",
                                      "管井系统", "管井编号", "井的直径"};
constexpr std::array kWellBlocks = {"VLT_WELL_01", "VLT_WELL_05", "VLT_WELL_15"};
constexpr std::array kSystems = {System::kFoul, System::kStorm, System::kWater};

std::string hexadecimal(std::uint64_t handle) {
    constexpr const char* digits = "0123456789ABCDEF";
    std::string text;
    for (; handle != 0; handle /= 16) {
        text.insert(text.begin(), digits[handle % 16]);
    }
    return text;
}

} // namespace

DrawingFrame::DrawingFrame(Place low, Place high, std::uint64_t last)
    : low_(low), high_(high), last_(last), modelSpace_(newHandle()), paperSpace_(newHandle()),
      rootDictionary_(newHandle()), groups_(newHandle()), layouts_(newHandle()),
      modelLayout_(newHandle()), paperLayout_(newHandle()) {}

std::string DrawingFrame::newHandle() {
    return hexadecimal(next_++);
}

void DrawingFrame::addHead(TagText& tags) {
    addHeader(tags);
    addTables(tags);
    addBlocks(tags);
    tags.add(0, "SECTION");
    tags.add(2, "ENTITIES");
}

void DrawingFrame::addHeader(TagText& tags) const {
    tags.add(0, "SECTION");
    tags.add(2, "HEADER");
    tags.add(9, "$ACADVER");
    tags.add(1, "AC1024");
    tags.add(9, "$DWGCODEPAGE");
    tags.add(3, "ANSI_936");
    tags.add(9, "$EXTMIN");
    tags.point(10, low_);
    tags.add(9, "$EXTMAX");
    tags.point(10, high_);
    tags.add(9, "$CLAYER");
    tags.add(8, "0");
    tags.add(9, "$MEASUREMENT");
    tags.add(70, 1);
    tags.add(9, "$INSUNITS");
    tags.add(70, 6);
    tags.add(9, "$HANDSEED");
    tags.add(5, hexadecimal(last_ + 1));
    tags.add(0, "ENDSEC");
    tags.add(0, "SECTION");
    tags.add(2, "CLASSES");
    tags.add(0, "ENDSEC");
}

void DrawingFrame::addTables(TagText& tags) {
    tags.add(0, "SECTION");
    tags.add(2, "TABLES");
    addViewport(tags);
    addLinetypes(tags);
    addLayers(tags);
    addStyle(tags);
    for (const char* kind : {"VIEW", "UCS"}) {
        beginTable(tags, kind, 0);
        tags.add(0, "ENDTAB");
    }
    addApplications(tags);
    addDimensionStyle(tags);
    addBlockRecords(tags);
    tags.add(0, "ENDSEC");
}

std::string DrawingFrame::beginTable(TagText& tags, const char* kind, std::size_t count) {
    std::string handle = newHandle();
    tags.add(0, "TABLE");
    tags.add(2, kind);
    tags.add(5, handle);
    tags.add(330, "0");
    tags.add(100, "AcDbSymbolTable");
    tags.add(70, static_cast<int>(count));
    return handle;
}

std::string DrawingFrame::beginRecord(TagText& tags, const char* kind, const std::string& table,
                                      const char* subclass, const std::string& name) {
    std::string handle = newHandle();
    tags.add(0, kind);
    tags.add(kind == std::string_view("DIMSTYLE") ? 105 : 5, handle);
    tags.add(330, table);
    tags.add(100, "AcDbSymbolTableRecord");
    tags.add(100, subclass);
    tags.add(2, name);
    return handle;
}

void DrawingFrame::addViewport(TagText& tags) {
    const std::string table = beginTable(tags, "VPORT", 1);
    beginRecord(tags, "VPORT", table, "AcDbViewportTableRecord", "*Active");
    tags.add(70, 0);
    tags.add(10, 0.0);
    tags.add(20, 0.0);
    tags.add(11, 1.0);
    tags.add(21, 1.0);
    tags.add(12, (low_.x + high_.x) / 2.0);
    tags.add(22, (low_.y + high_.y) / 2.0);
    tags.point(16, {0.0, 0.0});
    tags.add(40, high_.y - low_.y + 1.0);
    tags.add(41, 1.6);
    tags.add(0, "ENDTAB");
}

void DrawingFrame::addLinetypes(TagText& tags) {
    constexpr std::array names = {"ByBlock", "ByLayer", "Continuous"};
    const std::string table = beginTable(tags, "LTYPE", names.size());
    for (const char* name : names) {
        beginRecord(tags, "LTYPE", table, "AcDbLinetypeTableRecord", name);
        tags.add(70, 0);
        tags.add(3, "");
        tags.add(72, 65);
        tags.add(73, 0);
        tags.add(40, 0.0);
    }
    tags.add(0, "ENDTAB");
}

void DrawingFrame::addLayers(TagText& tags) {
    std::vector<std::string> names{"0"};
    for (const System system : kSystems) {
        names.push_back(std::string(systemName(system)) + "管");
        names.push_back(std::string(systemName(system)) + "井");
    }
    const std::string table = beginTable(tags, "LAYER", names.size());
    for (const std::string& name : names) {
        beginRecord(tags, "LAYER", table, "AcDbLayerTableRecord", name);
        tags.add(70, 0);
        tags.add(62, 7);
        tags.add(6, "Continuous");
    }
    tags.add(0, "ENDTAB");
}

void DrawingFrame::addStyle(TagText& tags) {
    const std::string table = beginTable(tags, "STYLE", 1);
    beginRecord(tags, "STYLE", table, "AcDbTextStyleTableRecord", "Standard");
    tags.add(70, 0);
    tags.add(40, 0.0);
    tags.add(41, 1.0);
    tags.add(50, 0.0);
    tags.add(71, 0);
    tags.add(42, 2.5);
    tags.add(3, "txt.shx");
    tags.add(4, "");
    tags.add(0, "ENDTAB");
}

void DrawingFrame::addApplications(TagText& tags) {
    const std::string table = beginTable(tags, "APPID", kApplications.size());
    for (const char* name : kApplications) {
        beginRecord(tags, "APPID", table, "AcDbRegAppTableRecord", name);
        tags.add(70, 0);
    }
    tags.add(0, "ENDTAB");
}

void DrawingFrame::addDimensionStyle(TagText& tags) {
    const std::string table = beginTable(tags, "DIMSTYLE", 1);
    tags.add(100, "AcDbDimStyleTable");
    tags.add(71, 1);
    beginRecord(tags, "DIMSTYLE", table, "AcDbDimStyleTableRecord", "Standard");
    tags.add(70, 0);
    tags.add(0, "ENDTAB");
}

void DrawingFrame::addBlockRecords(TagText& tags) {
    const std::string table = beginTable(tags, "BLOCK_RECORD", 2 + kWellBlocks.size());
    const auto add = [&](const std::string& handle, const char* name, const std::string& layout) {
        tags.add(0, "BLOCK_RECORD");
        tags.add(5, handle);
        tags.add(330, table);
        tags.add(100, "AcDbSymbolTableRecord");
        tags.add(100, "AcDbBlockTableRecord");
        tags.add(2, name);
        tags.add(340, layout);
        tags.add(70, layout == "0" ? 0 : 6);
        tags.add(280, 1);
        tags.add(281, 0);
    };
    add(modelSpace_, "*Model_Space", modelLayout_);
    add(paperSpace_, "*Paper_Space", paperLayout_);
    for (const char* name : kWellBlocks) {
        blockRecords_.push_back(newHandle());
        add(blockRecords_.back(), name, "0");
    }
    tags.add(0, "ENDTAB");
}

/// The blocks of wells are circles of one metre, scaled where they stand.
void DrawingFrame::addBlocks(TagText& tags) {
    tags.add(0, "SECTION");
    tags.add(2, "BLOCKS");
    const auto common = [&](const std::string& owner) {
        tags.add(5, newHandle());
        tags.add(330, owner);
        tags.add(100, "AcDbEntity");
        if (owner == paperSpace_) {
            tags.add(67, 1);
        }
        tags.add(8, "0");
    };
    const auto add = [&](const std::string& record, const char* name, bool circle) {
        tags.add(0, "BLOCK");
        common(record);
        tags.add(100, "AcDbBlockBegin");
        tags.add(2, name);
        tags.add(70, 0);
        tags.point(10, {0.0, 0.0});
        tags.add(3, name);
        tags.add(1, "");
        if (circle) {
            tags.add(0, "CIRCLE");
            common(record);
            tags.add(100, "AcDbCircle");
            tags.point(10, {0.0, 0.0});
            tags.add(40, 0.5);
        }
        tags.add(0, "ENDBLK");
        common(record);
        tags.add(100, "AcDbBlockEnd");
    };
    add(modelSpace_, "*Model_Space", false);
    add(paperSpace_, "*Paper_Space", false);
    for (std::size_t i = 0; i < kWellBlocks.size(); ++i) {
        add(blockRecords_[i], kWellBlocks[i], true);
    }
    tags.add(0, "ENDSEC");
}

void DrawingFrame::addTail(TagText& tags) {
    tags.add(0, "ENDSEC");
    tags.add(0, "SECTION");
    tags.add(2, "OBJECTS");
    addDictionary(tags, rootDictionary_, "0");
    tags.add(3, "ACAD_GROUP");
    tags.add(350, groups_);
    tags.add(3, "ACAD_LAYOUT");
    tags.add(350, layouts_);
    addDictionary(tags, groups_, rootDictionary_);
    addDictionary(tags, layouts_, rootDictionary_);
    tags.add(3, "Layout1");
    tags.add(350, paperLayout_);
    tags.add(3, "Model");
    tags.add(350, modelLayout_);
    addLayout(tags, modelLayout_, "Model", 0, modelSpace_);
    addLayout(tags, paperLayout_, "Layout1", 1, paperSpace_);
    tags.add(0, "ENDSEC");
    tags.add(0, "EOF");
}

void DrawingFrame::addDictionary(TagText& tags, const std::string& handle,
                                 const std::string& owner) const {
    tags.add(0, "DICTIONARY");
    tags.add(5, handle);
    tags.add(330, owner);
    tags.add(100, "AcDbDictionary");
    tags.add(281, 1);
}

void DrawingFrame::addLayout(TagText& tags, const std::string& handle, const char* name, int order,
                             const std::string& space) const {
    tags.add(0, "LAYOUT");
    tags.add(5, handle);
    tags.add(330, layouts_);
    tags.add(100, "AcDbPlotSettings");
    tags.add(1, "");
    tags.add(4, "A3");
    tags.add(70, order == 0 ? 1712 : 688);
    tags.add(100, "AcDbLayout");
    tags.add(1, name);
    tags.add(70, 1);
    tags.add(71, order);
    tags.point(14, low_);
    tags.point(15, high_);
    tags.add(330, space);
}

} // namespace benchmark_town
