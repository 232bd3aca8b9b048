#include "HandleText.h"

#include <fmt/format.h>

namespace pipenet {

std::string handleText(const AcDbHandle& handle) {
    return handle.isNull() ? std::string() : fmt::format("{:X}", handle.value());
}

std::string handleText(const AcDbObjectId& id) {
    return handleText(id.handle());
}

std::string handlesText(const AcDbObjectIdArray& ids) {
    std::string text;
    for (int i = 0; i < ids.length(); ++i) {
        text += (i == 0 ? "" : " ") + handleText(ids[i]);
    }
    return text;
}

std::string utf8(const CString& text) {
    return host_text::toUtf8(text.view());
}

} // namespace pipenet
