#include "dxf/TableDescription.h"

#include "database/OpenObject.h"
#include "database/SymbolTables.h"
#include "dxf/DescribedGeometry.h"

namespace host_dxf {

namespace {

constexpr std::string_view anyRecord = "AcDbSymbolTableRecord";

Fields nameAndFlags(const AcDbSymbolTableRecord& record) {
    return {{2, std::wstring(record.name().GetString())}, {70, std::int64_t{record.flags()}}};
}

RecordDescription start(std::string_view type, std::string_view marker, Fields fields) {
    RecordDescription record;
    record.type = type;
    record.groups.push_back({anyRecord, {}});
    record.groups.push_back({marker, std::move(fields)});
    return record;
}

RecordDescription describe(const AcDbLayerTableRecord& layer) {
    const auto* const linetype = host_db::peek<AcDbSymbolTableRecord>(layer.linetypeObjectId());
    const std::int64_t color = layer.colorIndex();
    Fields fields = nameAndFlags(layer);
    fields.push_back({62, layer.isOff() ? -color : color});
    fields.push_back(
        {6, NameValue{linetype == nullptr ? L"Continuous" : linetype->name().GetString()}});
    return start("LAYER", "AcDbLayerTableRecord", std::move(fields));
}

Fields describeDash(const host_db::LinetypeDash& dash) {
    Fields fields{{49, dash.length}, {74, dash.flags}};
    if (dash.isComplex()) {
        fields.push_back({75, dash.shapeNumber});
        fields.push_back({340, HandleValue{dash.style.handle().value()}});
        fields.push_back({46, dash.scale});
        fields.push_back({50, degreesOf(dash.rotation)});
        fields.push_back({44, dash.offset.x});
        fields.push_back({45, dash.offset.y});
    }
    if ((dash.flags & host_db::LinetypeDash::kText) != 0) {
        fields.push_back({9, std::wstring(dash.text.GetString())});
    }
    return fields;
}

RecordDescription describe(const AcDbLinetypeTableRecord& linetype, bool lengthsAlone) {
    constexpr std::int64_t alignment = 65; // the letter A, the only one there is
    Fields fields = nameAndFlags(linetype);
    fields.push_back({3, std::wstring(linetype.comments())});
    fields.push_back({72, alignment, false, 0});
    fields.push_back({73, std::int64_t{linetype.numDashes()}});
    fields.push_back({40, linetype.patternLength()});
    RecordDescription record = start("LTYPE", "AcDbLinetypeTableRecord", std::move(fields));
    record.list.codes = {49, 74, 75, 340, 46, 50, 44, 45, 9};
    for (const host_db::LinetypeDash& dash : linetype.dashes()) {
        record.list.elements.push_back(lengthsAlone ? Fields{{49, dash.length}}
                                                    : describeDash(dash));
    }
    return record;
}

RecordDescription describe(const AcDbTextStyleTableRecord& style) {
    const CString& font = style.fontFile();
    Fields fields = nameAndFlags(style);
    fields.push_back({40, style.textSize()});
    fields.push_back({41, style.xScale()});
    fields.push_back({50, degreesOf(style.obliquingAngle())});
    // A style needs a font; one without is drawn with this one.
    fields.push_back({3, std::wstring(font.IsEmpty() ? L"txt" : font.GetString())});
    fields.push_back({4, std::wstring(style.bigFontFile().GetString())});
    return start("STYLE", "AcDbTextStyleTableRecord", std::move(fields));
}

} // namespace

RecordDescription describeTableRecord(const AcDbSymbolTableRecord& record, bool lengthsAlone) {
    if (const auto* const layer = AcDbLayerTableRecord::cast(&record)) {
        return describe(*layer);
    }
    if (const auto* const linetype = AcDbLinetypeTableRecord::cast(&record)) {
        return describe(*linetype, lengthsAlone);
    }
    if (const auto* const style = AcDbTextStyleTableRecord::cast(&record)) {
        return describe(*style);
    }
    if (AcDbDimStyleTableRecord::cast(&record) != nullptr) {
        return start("DIMSTYLE", "AcDbDimStyleTableRecord", nameAndFlags(record));
    }
    if (AcDbRegAppTableRecord::cast(&record) != nullptr) {
        return start("APPID", "AcDbRegAppTableRecord", nameAndFlags(record));
    }
    return start("BLOCK_RECORD", "AcDbBlockTableRecord",
                 {{2, std::wstring(record.name().GetString())}});
}

RecordDescription describeBlockBegin(const AcDbBlockTableRecord& record) {
    constexpr std::int64_t anonymousFlag = 1;
    constexpr std::int64_t attributesFlag = 2;
    const std::int64_t flags = (record.isAnonymous() ? anonymousFlag : 0) |
                               (record.hasAttributeDefinitions() ? attributesFlag : 0);
    const std::wstring name = record.name().GetString();
    Fields fields{{2, name}, {70, flags, false, 0}};
    addPoint(fields, 10, record.origin());
    fields.push_back({3, name});
    RecordDescription begin;
    begin.type = "BLOCK";
    begin.groups.push_back({"AcDbEntity", {{8, std::wstring(L"0")}}});
    begin.groups.push_back({"AcDbBlockBegin", std::move(fields)});
    return begin;
}

} // namespace host_dxf
