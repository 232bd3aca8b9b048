#include "database/XdataText.h"

#include "database/AcDbDatabase.h"
#include "database/DatabaseRegistry.h"
#include "platform/WideCharacters.h"

namespace host_db {
namespace {

/// The road for objects whose data were set in this process.
bool firstStringOfItems(const ResultItems& items, const wchar_t* application, CString& text) {
    bool inSection = false;
    for (const ResultItem& item : items) {
        if (item.type == AcDb::kDxfRegAppName) {
            if (inSection) {
                return true;
            }
            inSection = host_text::compareNoCase(std::get<CString>(item.value), application) == 0;
            if (inSection) {
                text.Empty();
            }
        } else if (inSection && item.type == AcDb::kDxfXDAsciiString) {
            text = std::get<CString>(item.value);
            return true;
        }
    }
    return inSection;
}

} // namespace

bool firstXdataString(const AcDbObject& object, const wchar_t* application, CString& text,
                      bool& hasApp) {
    hasApp = false;
    if (application == nullptr) {
        return false;
    }
    if (const ResultItems* items = object.ownXdata()) {
        hasApp = firstStringOfItems(*items, application, text);
        return hasApp;
    }
    const AcDbDatabase* database = homeOf(object.objectId());
    const DrawingSource* source = database == nullptr ? nullptr : database->source();
    if (source == nullptr) {
        return false;
    }
    const XdataApplications& applications = database->applications();
    const std::uint32_t number = applications.find(application);
    if (number != XdataApplications::kNone &&
        applications.contains(object.applicationSet(), number)) {
        hasApp = source->firstXdataString(object.sourceRange(), application, number, text);
    }
    return hasApp;
}

} // namespace host_db
