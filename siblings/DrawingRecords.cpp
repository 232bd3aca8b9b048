#include "DrawingRecords.h"

#include "database/AcDbDatabase.h"
#include "database/AcDbDictionary.h"
#include "database/AcDbHostApplicationServices.h"
#include "database/AcDbXrecord.h"
#include "database/OpenObject.h"
#include "platform/TextToNumber.h"

#include <variant>

namespace siblings {

namespace {

constexpr int textItem = 8;

/// The entry of a dictionary, which may be null, as the class wanted; null when there is none. The
/// entries are looked at without opening them, so that a caller who has one open for write at this
/// moment does not hide it.
template<typename T>
const T* entryOf(const AcDbDictionary* dictionary, const wchar_t* name) {
    AcDbObjectId id;
    if (dictionary == nullptr || dictionary->getAt(name, id) != Acad::eOk) {
        return nullptr;
    }
    return host_db::peek<T>(id);
}

/// The text of a record's first item; null when there is no such record or item.
const CString* textOf(const AcDbDictionary* records, const wchar_t* name) {
    const auto* record = entryOf<AcDbXrecord>(records, name);
    if (record == nullptr || record->items().empty() || record->items().front().type != textItem) {
        return nullptr;
    }
    return std::get_if<CString>(&record->items().front().value);
}

std::optional<double> realOf(const AcDbDictionary* records, const wchar_t* name) {
    const CString* text = textOf(records, name);
    return text != nullptr ? std::optional(platform_crt::wcstod(*text, nullptr)) : std::nullopt;
}

std::optional<int> integerOf(const AcDbDictionary* records, const wchar_t* name) {
    const CString* text = textOf(records, name);
    return text != nullptr ? std::optional(_wtoi(*text)) : std::nullopt;
}

DrawingSettings read(const AcDbDatabase& drawing) {
    const auto* named = host_db::peek<AcDbDictionary>(drawing.namedObjectsDictionaryId());
    const auto* records = entryOf<AcDbDictionary>(named, L"TKVLT_DRAWING_SETTINGS");
    if (records == nullptr) {
        return {};
    }
    return {realOf(records, L"DwgScale"), realOf(records, L"DrawScale"),
            realOf(records, L"PipeBreakDist"), integerOf(records, L"PipeCalLongType")};
}

} // namespace

const DrawingSettings& DrawingRecords::current() {
    const AcDbDatabase* drawing = acdbHostApplicationServices()->workingDatabase();
    const std::uint32_t serial = drawing != nullptr ? drawing->serial() : 0;
    const std::uint64_t revision = drawing != nullptr ? drawing->revision() : 0;
    if (serial != drawing_ || revision != revision_) {
        values_ = drawing != nullptr ? read(*drawing) : DrawingSettings();
        drawing_ = serial;
        revision_ = revision;
    }
    return values_;
}

} // namespace siblings
