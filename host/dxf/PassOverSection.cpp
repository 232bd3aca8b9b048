#include "dxf/LoadContext.h"
#include "dxf/Sections.h"

namespace host_dxf {

void passOverSection(LoadContext& context) {
    RecordReader& reader = context.reader();
    while (!reader.atRecord("ENDSEC")) {
        const bool ended = reader.peek().code == RecordReader::endOfFile;
        if (ended || reader.atRecord("SECTION") || reader.atRecord("EOF")) {
            reader.failExpecting("ENDSEC");
        }
        reader.skip();
    }
}

} // namespace host_dxf
