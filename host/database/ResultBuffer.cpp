#include "database/ResultBuffer.h"

#include <algorithm>
#include <array>
#include <cstdarg>
#include <cstring>
#include <cwchar>
#include <memory>

namespace host_db {
namespace {

struct KindRange {
    int first;
    int last;
    ValueKind kind;
};

/// Ordered by the first code; what lies between the ranges is no code of a value.
constexpr std::array kKinds = {KindRange{-5, -5, ValueKind::None},
                               KindRange{-4, -4, ValueKind::Text},
                               KindRange{-3, -3, ValueKind::None},
                               KindRange{-2, -1, ValueKind::Name},
                               KindRange{0, 9, ValueKind::Text},
                               KindRange{10, 18, ValueKind::Point},
                               KindRange{19, 59, ValueKind::Real},
                               KindRange{60, 79, ValueKind::Short},
                               KindRange{90, 99, ValueKind::Long},
                               KindRange{100, 109, ValueKind::Text},
                               KindRange{110, 119, ValueKind::Point},
                               KindRange{120, 149, ValueKind::Real},
                               KindRange{160, 169, ValueKind::Int64},
                               KindRange{170, 179, ValueKind::Short},
                               KindRange{210, 219, ValueKind::Point},
                               KindRange{220, 239, ValueKind::Real},
                               KindRange{270, 299, ValueKind::Short},
                               KindRange{300, 309, ValueKind::Text},
                               KindRange{310, 319, ValueKind::Binary},
                               KindRange{320, 329, ValueKind::Text},
                               KindRange{330, 369, ValueKind::Name},
                               KindRange{370, 389, ValueKind::Short},
                               KindRange{390, 399, ValueKind::Text},
                               KindRange{400, 409, ValueKind::Short},
                               KindRange{410, 419, ValueKind::Text},
                               KindRange{420, 429, ValueKind::Long},
                               KindRange{430, 439, ValueKind::Text},
                               KindRange{440, 459, ValueKind::Long},
                               KindRange{460, 469, ValueKind::Real},
                               KindRange{470, 481, ValueKind::Text},
                               KindRange{999, 1003, ValueKind::Text},
                               KindRange{1004, 1004, ValueKind::Binary},
                               KindRange{1005, 1009, ValueKind::Text},
                               KindRange{1010, 1013, ValueKind::Point},
                               KindRange{1014, 1059, ValueKind::Real},
                               KindRange{1060, 1070, ValueKind::Short},
                               KindRange{1071, 1071, ValueKind::Long},
                               KindRange{RTREAL, RTREAL, ValueKind::Real},
                               KindRange{RTPOINT, RTPOINT, ValueKind::Point},
                               KindRange{RTSHORT, RTSHORT, ValueKind::Short},
                               KindRange{RTANG, RTANG, ValueKind::Real},
                               KindRange{RTSTR, RTSTR, ValueKind::Text},
                               KindRange{RTENAME, RTPICKS, ValueKind::Name},
                               KindRange{RTORINT, RTORINT, ValueKind::Real},
                               KindRange{RT3DPOINT, RT3DPOINT, ValueKind::Point},
                               KindRange{RTLONG, RTLONG, ValueKind::Long},
                               KindRange{RTVOID, RTVOID, ValueKind::None},
                               KindRange{RTLB, RTNIL, ValueKind::None},
                               KindRange{RTDXF0, RTDXF0, ValueKind::Text},
                               KindRange{RTT, RTT, ValueKind::None}};

/// A chain does not know who holds it, so leaks can only be counted over the whole process.
std::size_t& liveCount() {
    static std::size_t count = 0;
    return count;
}

void releaseValue(resbuf& item) {
    if (host_db::valueKind(item.restype) == ValueKind::Text) {
        acutDelString(item.resval.rstring);
    } else if (host_db::valueKind(item.restype) == ValueKind::Binary) {
        delete[] item.resval.rbinary.buf;
    }
}

void takeBytes(resbuf& item, const ads_binary* bytes) {
    const short length = bytes == nullptr ? short{0} : std::max(bytes->clen, short{0});
    item.resval.rbinary = {length, new char[static_cast<std::size_t>(length) + 1]};
    std::copy_n(length == 0 ? "" : bytes->buf, length, item.resval.rbinary.buf);
    item.resval.rbinary.buf[length] = '\0';
}

void takePoint(resbuf& item, const ads_real* point) {
    if (point != nullptr) {
        std::copy_n(point, 3, item.resval.rpoint);
    }
}

void takeName(resbuf& item, const std::int64_t* name) {
    if (name != nullptr) {
        std::copy_n(name, 2, item.resval.rlname);
    }
}

} // namespace

ValueKind valueKind(int type) {
    for (const KindRange& range : kKinds) {
        if (type >= range.first && type <= range.last) {
            return range.kind;
        }
    }
    return ValueKind::Unknown;
}

std::size_t liveResultBuffers() {
    return liveCount();
}

namespace {

/// Reads the value that follows a type code in an argument list.
void takeArgument(resbuf& item, ValueKind kind, va_list& arguments) {
    switch (kind) {
    case ValueKind::Text:
        acutUpdString(va_arg(arguments, const ACHAR*), item.resval.rstring);
        break;
    case ValueKind::Real:
        item.resval.rreal = va_arg(arguments, double);
        break;
    case ValueKind::Point:
        takePoint(item, va_arg(arguments, const ads_real*));
        break;
    case ValueKind::Short:
        item.resval.rint = static_cast<short>(va_arg(arguments, int));
        break;
    case ValueKind::Long:
        item.resval.rlong = va_arg(arguments, int);
        break;
    case ValueKind::Int64:
        item.resval.mnInt64 = va_arg(arguments, Adesk::Int64);
        break;
    case ValueKind::Name:
        takeName(item, va_arg(arguments, const std::int64_t*));
        break;
    case ValueKind::Binary:
        takeBytes(item, va_arg(arguments, const ads_binary*));
        break;
    case ValueKind::None:
    case ValueKind::Unknown:
        break;
    }
}

} // namespace
} // namespace host_db

resbuf* acutNewRb(int type) {
    auto* item = new resbuf{};
    item->restype = static_cast<short>(type);
    ++host_db::liveCount();
    return item;
}

int acutRelRb(resbuf* chain) {
    while (chain != nullptr) {
        resbuf* next = chain->rbnext;
        host_db::releaseValue(*chain);
        delete chain;
        --host_db::liveCount();
        chain = next;
    }
    return RTNORM;
}

namespace host_db {

bool buildList(int type, va_list arguments, resbuf*& chain) {
    chain = nullptr;
    // What was built goes when memory ends on the way.
    std::unique_ptr<resbuf, int (*)(resbuf*)> built(nullptr, acutRelRb);
    resbuf* tail = nullptr;
    bool isKnown = true;
    va_list rest;
    va_copy(rest, arguments);
    while (type != 0 && type != RTNONE && isKnown) {
        const ValueKind kind = valueKind(type);
        isKnown = kind != ValueKind::Unknown;
        if (isKnown) {
            resbuf* const item = acutNewRb(type == RTDXF0 ? 0 : type);
            if (tail == nullptr) {
                built.reset(item);
            } else {
                tail->rbnext = item;
            }
            tail = item;
            takeArgument(*item, kind, rest);
            type = va_arg(rest, int);
        }
    }
    va_end(rest);
    if (isKnown) {
        chain = built.release();
    }
    return isKnown;
}

} // namespace host_db

resbuf* acutBuildList(int type, ...) {
    va_list arguments;
    va_start(arguments, type);
    resbuf* chain = nullptr;
    host_db::buildList(type, arguments, chain);
    va_end(arguments);
    return chain;
}

int acutNewString(const ACHAR* source, ACHAR*& target) {
    target = nullptr;
    if (source != nullptr) {
        const std::size_t size = std::wcslen(source) + 1;
        target = new ACHAR[size];
        std::wmemcpy(target, source, size);
    }
    return RTNORM;
}

int acutUpdString(const ACHAR* source, ACHAR*& target) {
    ACHAR* copy = nullptr;
    acutNewString(source, copy);
    delete[] target;
    target = copy;
    return RTNORM;
}

void acutDelString(ACHAR*& text) {
    delete[] text;
    text = nullptr;
}
