#include "dxf/TableRecords.h"

#include "database/SymbolTables.h"
#include "dxf/EntityGeometry.h"

#include <array>
#include <cstdlib>
#include <memory>
#include <numbers>
#include <utility>
#include <vector>

namespace host_dxf {

namespace {

using Table = LoadContext::Table;

constexpr std::array<std::pair<std::string_view, Table>, 6> tables{{
    {"LAYER", Table::Layer},
    {"LTYPE", Table::Linetype},
    {"STYLE", Table::TextStyle},
    {"DIMSTYLE", Table::DimStyle},
    {"APPID", Table::RegApp},
    {"BLOCK_RECORD", Table::Block},
}};

std::unique_ptr<AcDbSymbolTableRecord> makeLayer(LoadContext& context, const DxfRecord& record) {
    constexpr std::int64_t greatestColor = 255;
    auto layer = std::make_unique<AcDbLayerTableRecord>();
    const std::int64_t color = record.integer(62, 7);
    const std::int64_t number = color < 0 ? -(color + 1) + 1 : color;
    if (number >= 1 && number <= greatestColor) {
        layer->setColorIndex(static_cast<Adesk::UInt16>(number));
    }
    // A layer that is switched off has its colour negated.
    layer->setIsOff(color < 0);
    layer->setLinetypeObjectId(
        context.builder().findRecord(Table::Linetype, context.decode(record.text(6)).c_str()));
    return layer;
}

std::unique_ptr<AcDbSymbolTableRecord> makeTextStyle(LoadContext& context,
                                                     const DxfRecord& record) {
    auto style = std::make_unique<AcDbTextStyleTableRecord>();
    style->setTextSize(record.real(40, 0.0));
    style->setXScale(record.real(41, 1.0));
    style->setObliquingAngle(angleOf(record, 50));
    style->setFileName(context.decodeText(record.text(3)));
    style->setBigFontFileName(context.decodeText(record.text(4)));
    return style;
}

/// Puts a group of a linetype's pattern into the dash that it belongs to.
void readDashGroup(LoadContext& context, const DxfTag& tag, host_db::LinetypeDash& dash) {
    switch (tag.code) {
    case 74:
        dash.flags = tag.integer;
        break;
    case 75:
        dash.shapeNumber = tag.integer;
        break;
    case 340:
        dash.style = context.builder().idForHandle(handleOf(tag));
        break;
    case 46:
        dash.scale = tag.real;
        break;
    case 50:
        dash.rotation = tag.real * (std::numbers::pi / 180.0);
        break;
    case 44:
        dash.offset.x = tag.real;
        break;
    case 45:
        dash.offset.y = tag.real;
        break;
    case 9:
        dash.text = context.decodeText(tag.text);
        break;
    default:
        break;
    }
}

std::unique_ptr<AcDbSymbolTableRecord> makeLinetype(LoadContext& context, const DxfRecord& record) {
    auto linetype = std::make_unique<AcDbLinetypeTableRecord>();
    std::vector<host_db::LinetypeDash> dashes;
    for (const DxfTag& tag : record.tags) {
        if (tag.code == 49) {
            dashes.emplace_back().length = tag.real;
        } else if (!dashes.empty()) {
            readDashGroup(context, tag, dashes.back());
        }
    }
    linetype->setComments(context.decodeText(record.text(3)));
    linetype->setDashes(std::move(dashes));
    return linetype;
}

std::unique_ptr<AcDbSymbolTableRecord> makeRecord(LoadContext& context, Table table,
                                                  const DxfRecord& record) {
    switch (table) {
    case Table::Layer:
        return makeLayer(context, record);
    case Table::TextStyle:
        return makeTextStyle(context, record);
    case Table::Linetype:
        return makeLinetype(context, record);
    case Table::DimStyle:
        return std::make_unique<AcDbDimStyleTableRecord>();
    default:
        return std::make_unique<AcDbRegAppTableRecord>();
    }
}

void addBlockRecord(LoadContext& context, const DxfRecord& record) {
    const std::wstring name = context.blockName(record.text(2));
    const AcDbObjectId id =
        context.builder().addBlock(name.c_str(), 0, context.objectHeader(record));
    LoadContext::requireAdded(id, record);
    context.noteBlockRecord(LoadContext::ownHandle(record), id);
}

} // namespace

std::optional<Table> tableOfName(std::string_view name) {
    for (const auto& [tableName, table] : tables) {
        if (tableName == name) {
            return table;
        }
    }
    return std::nullopt;
}

bool addTableRecord(LoadContext& context, const DxfRecord& record) {
    const std::optional<Table> table = tableOfName(record.type);
    if (!table) {
        return false;
    }
    if (*table == Table::Block) {
        addBlockRecord(context, record);
        return true;
    }
    const AcDbObjectId id = context.builder().addRecord(
        *table, makeRecord(context, *table, record), context.decode(record.text(2)).c_str(),
        static_cast<int>(record.integer(70, 0)), context.objectHeader(record));
    LoadContext::requireAdded(id, record);
    return true;
}

} // namespace host_dxf
