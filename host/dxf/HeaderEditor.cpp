#include "dxf/HeaderEditor.h"

#include "database/OpenObject.h"
#include "database/SymbolTables.h"
#include "dxf/TagCursor.h"

namespace host_dxf {

namespace {

const HeaderVariable* variable(const FileOutline& outline, std::string_view name) {
    for (const HeaderVariable& each : outline.variables) {
        if (each.name == name) {
            return &each;
        }
    }
    return nullptr;
}

/// The group that holds the value of a variable; false when it has none of that code.
bool valueOf(const DxfSource& file, const HeaderVariable& variable, int code, DxfTag& value) {
    TagCursor cursor(file, variable.range.begin, variable.range.end, variable.range.firstLine);
    while (cursor.next(value)) {
        if (value.code == code) {
            return true;
        }
    }
    return false;
}

void setVariable(SaveContext& context, std::string_view name, const Field& field) {
    const HeaderVariable* const standing = variable(context.outline(), name);
    DxfTag value;
    if (standing != nullptr && valueOf(context.file(), *standing, field.code, value)) {
        overwriteGroup(context.file(), value, field, context.writer(), context.edits());
        return;
    }
    context.writer().plain(9, name);
    context.writer().field(field);
    context.addition("HEADER") += context.writer().take();
}

/// The layer that is current by the file alone: null when it is none of the drawing's any more.
AcDbObjectId layerOfFile(const SaveContext& context) {
    constexpr int layerCode = 8;
    const HeaderVariable* const standing = variable(context.outline(), "$CLAYER");
    DxfTag value;
    if (standing == nullptr || !valueOf(context.file(), *standing, layerCode, value)) {
        return context.database().layerZero();
    }
    const std::wstring name = context.decoder().decode(value.text);
    const auto* const layers = host_db::peek<AcDbLayerTable>(context.database().layerTableId());
    AcDbObjectId named;
    if (layers->getAt(name.c_str(), named, true) != Acad::eOk) {
        // Never a layer of the drawing: layer 0 has stood in for it from the start.
        return context.database().layerZero();
    }
    return named;
}

} // namespace

void updateHeader(SaveContext& context) {
    const AcDbObjectId current = context.database().clayer();
    if (current != layerOfFile(context)) {
        const auto* const layer = host_db::peek<AcDbLayerTableRecord>(current);
        setVariable(context, "$CLAYER", {8, std::wstring(layer->name().GetString())});
    }
    const bool hasHeader = context.part(FilePart::Kind::Section, "HEADER") != nullptr;
    if (context.tookHandles() && hasHeader && context.nextHandle() > context.outline().handleSeed) {
        setVariable(context, "$HANDSEED", {5, HandleValue{context.nextHandle()}});
    }
}

} // namespace host_dxf
