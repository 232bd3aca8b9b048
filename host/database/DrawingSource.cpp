#include "database/DrawingSource.h"

#include "database/AcDbTypes.h"
#include "database/ResultBuffer.h"
#include "platform/WideCharacters.h"

namespace host_db {

DrawingSource::~DrawingSource() = default;

bool DrawingSource::firstXdataString(const host_dxf::SourceRange& range, const wchar_t* application,
                                     std::uint32_t /*number*/, CString& text) const {
    resbuf* chain = readXdata(range);
    const resbuf* item = chain;
    const auto isSection = [](const resbuf* it) { return it->restype == AcDb::kDxfRegAppName; };
    while (item != nullptr &&
           !(isSection(item) && host_text::compareNoCase(item->resval.rstring, application) == 0)) {
        item = item->rbnext;
    }
    const bool found = item != nullptr;
    if (found) {
        text.Empty();
        item = item->rbnext;
        while (item != nullptr && !isSection(item) && item->restype != AcDb::kDxfXDAsciiString) {
            item = item->rbnext;
        }
        if (item != nullptr && !isSection(item)) {
            text = item->resval.rstring;
        }
    }
    acutRelRb(chain);
    return found;
}

} // namespace host_db
