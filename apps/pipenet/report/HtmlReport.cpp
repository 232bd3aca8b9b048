#include "report/HtmlReport.h"

#include "report/PageText.h"
#include "report/ReportData.h"

namespace pipenet {

namespace {

/// JSON that may stand in a script element: without `<` no text can end the element or open a
/// comment in it. In JSON the character stands in strings alone.
std::string insideScript(const std::string& json) {
    std::string safe;
    safe.reserve(json.size());
    for (const char character : json) {
        if (character == '<') {
            safe += "\\u003c";
        } else {
            safe += character;
        }
    }
    return safe;
}

void append(std::string& page, std::span<const std::string_view> pieces) {
    for (const std::string_view piece : pieces) {
        page += piece;
    }
}

} // namespace

std::string htmlReport(const Drawing& drawing, const CheckReport& report) {
    const std::string json =
        reportData(drawing, report).dump(-1, ' ', false, Json::error_handler_t::replace);
    std::string page;
    append(page, kPageHead);
    page += insideScript(json);
    append(page, kPageTail);
    return page;
}

} // namespace pipenet
