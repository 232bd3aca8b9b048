#include "dxf/LoadContext.h"
#include "dxf/Sections.h"

namespace host_dxf {

namespace {

constexpr int variableCode = 9;

void useVariable(LoadContext& context, const HeaderVariable& variable, const DxfTag& value) {
    constexpr int layerCode = 8;
    if (variable.name == "$CLAYER" && value.code == layerCode) {
        context.noteCurrentLayer(value.text);
    }
}

} // namespace

void loadHeader(LoadContext& context) {
    RecordReader& reader = context.reader();
    while (!reader.atRecord("ENDSEC")) {
        if (reader.peek().code != variableCode) {
            reader.failExpecting("a variable (group 9) or ENDSEC");
        }
        const DxfTag name = reader.peek();
        HeaderVariable variable{std::string(name.text), {name.begin, name.end, name.line, 0}};
        reader.skip();
        while (reader.peek().code > 0 && reader.peek().code != variableCode) {
            useVariable(context, variable, reader.peek());
            variable.range.end = reader.peek().end;
            reader.skip();
        }
        context.outline().variables.push_back(std::move(variable));
    }
}

} // namespace host_dxf
