#include "database/ResultItems.h"

#include <algorithm>

namespace host_db {
namespace {

ResultItem itemOf(const resbuf& buffer) {
    ResultItem item;
    item.type = buffer.restype;
    switch (valueKind(buffer.restype)) {
    case ValueKind::Text:
        item.value = CString(buffer.resval.rstring);
        break;
    case ValueKind::Real:
        item.value = buffer.resval.rreal;
        break;
    case ValueKind::Point:
        item.value =
            AcGePoint3d(buffer.resval.rpoint[0], buffer.resval.rpoint[1], buffer.resval.rpoint[2]);
        break;
    case ValueKind::Short:
        item.value = std::int64_t{buffer.resval.rint};
        break;
    case ValueKind::Long:
        item.value = std::int64_t{buffer.resval.rlong};
        break;
    case ValueKind::Int64:
        item.value = buffer.resval.mnInt64;
        break;
    case ValueKind::Name:
        item.value = buffer.resval.rlname[0];
        break;
    case ValueKind::Binary:
        item.value = std::string(buffer.resval.rbinary.buf,
                                 static_cast<std::size_t>(buffer.resval.rbinary.clen));
        break;
    case ValueKind::None:
    case ValueKind::Unknown:
        break;
    }
    return item;
}

void setNumber(resbuf& buffer, std::int64_t number) {
    switch (valueKind(buffer.restype)) {
    case ValueKind::Short:
        buffer.resval.rint = static_cast<short>(number);
        break;
    case ValueKind::Long:
        buffer.resval.rlong = static_cast<Adesk::Int32>(number);
        break;
    case ValueKind::Name:
        buffer.resval.rlname[0] = number;
        break;
    default:
        buffer.resval.mnInt64 = number;
        break;
    }
}

void setBytes(resbuf& buffer, const std::string& bytes) {
    const auto length = static_cast<short>(std::min<std::size_t>(bytes.size(), 32767));
    buffer.resval.rbinary = {length, new char[static_cast<std::size_t>(length) + 1]};
    std::copy_n(bytes.c_str(), length, buffer.resval.rbinary.buf);
    buffer.resval.rbinary.buf[length] = '\0';
}

void setValue(resbuf& buffer, const ResultItem& item) {
    if (const auto* text = std::get_if<CString>(&item.value)) {
        acutUpdString(*text, buffer.resval.rstring);
    } else if (const auto* real = std::get_if<double>(&item.value)) {
        buffer.resval.rreal = *real;
    } else if (const auto* point = std::get_if<AcGePoint3d>(&item.value)) {
        buffer.resval.rpoint[0] = point->x;
        buffer.resval.rpoint[1] = point->y;
        buffer.resval.rpoint[2] = point->z;
    } else if (const auto* number = std::get_if<std::int64_t>(&item.value)) {
        setNumber(buffer, *number);
    } else if (const auto* bytes = std::get_if<std::string>(&item.value)) {
        setBytes(buffer, *bytes);
    }
}

} // namespace

ResultItems itemsOf(const resbuf* chain) {
    ResultItems items;
    for (; chain != nullptr; chain = chain->rbnext) {
        items.push_back(itemOf(*chain));
    }
    return items;
}

resbuf* chainOf(const ResultItems& items) {
    resbuf* head = nullptr;
    resbuf** tail = &head;
    for (const ResultItem& item : items) {
        *tail = acutNewRb(item.type);
        setValue(**tail, item);
        tail = &(*tail)->rbnext;
    }
    return head;
}

} // namespace host_db
