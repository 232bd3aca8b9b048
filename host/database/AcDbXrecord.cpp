#include "database/AcDbXrecord.h"

#include <algorithm>
#include <array>
#include <string_view>

ACRX_DEFINE_MEMBERS(AcDbXrecord, AcDbObject, L"XRECORD")

namespace {

constexpr short kBracketCode = 102;

/// Codes that mean something to a file's reader wherever they stand: the start of a record (0), its
/// handle (5, 105), the start of another part of it (100, 101), a comment (999), extended data.
bool belongsToTheFile(short code) {
    constexpr std::array<short, 6> kReserved = {0, 5, 100, 101, 105, 999};
    return code > kReserved.back() ||
           std::find(kReserved.begin(), kReserved.end(), code) != kReserved.end();
}

bool canBeStored(const host_db::ResultItem& item) {
    const host_db::ValueKind kind = host_db::valueKind(item.type);
    return item.type >= 0 && kind != host_db::ValueKind::None &&
           kind != host_db::ValueKind::Unknown && !belongsToTheFile(item.type);
}

/// Whether each bracket (102) that opens with "{" and a name is closed by "}" before the next one
/// opens, so that a reader who looks for its end stays inside the record.
bool hasBracketsInPairs(const host_db::ResultItems& items) {
    bool isOpen = false;
    for (const host_db::ResultItem& item : items) {
        if (item.type != kBracketCode) {
            continue;
        }
        const std::wstring_view text = std::get<CString>(item.value).GetString();
        const bool opens = text.size() > 1 && text.front() == L'{';
        if (opens == isOpen || (!opens && text != L"}")) {
            return false;
        }
        isOpen = opens;
    }
    return !isOpen;
}

} // namespace

AcRxObject* AcDbXrecord::clone() const {
    return new AcDbXrecord(*this);
}

Acad::ErrorStatus AcDbXrecord::setFromRbChain(const resbuf& chain, AcDbDatabase* /*database*/) {
    host_db::ResultItems items = host_db::itemsOf(&chain);
    if (!std::all_of(items.begin(), items.end(), canBeStored) || !hasBracketsInPairs(items)) {
        return Acad::eInvalidResBuf;
    }
    const Acad::ErrorStatus status = prepareWrite();
    if (status == Acad::eOk) {
        items_ = std::move(items);
    }
    return status;
}

Acad::ErrorStatus AcDbXrecord::rbChain(resbuf** chain, AcDbDatabase* /*database*/) const {
    if (chain == nullptr) {
        return Acad::eInvalidInput;
    }
    *chain = host_db::chainOf(items_);
    return Acad::eOk;
}
