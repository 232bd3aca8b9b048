#include "database/AcDbHandle.h"

#include <bit>

namespace {

int hexDigit(ACHAR character) {
    if (character >= L'0' && character <= L'9') {
        return character - L'0';
    }
    if (character >= L'A' && character <= L'F') {
        return character - L'A' + 10;
    }
    return character >= L'a' && character <= L'f' ? character - L'a' + 10 : -1;
}

} // namespace

AcDbHandle::AcDbHandle(const ACHAR* text) {
    std::uint64_t value = 0;
    int digits = 0;
    for (; text != nullptr && text[digits] != L'\0'; ++digits) {
        const int digit = hexDigit(text[digits]);
        if (digit < 0 || digits == 16) {
            return;
        }
        value = value * 16 + static_cast<std::uint64_t>(digit);
    }
    value_ = value;
}

bool AcDbHandle::getIntoAsciiBuffer(ACHAR* buffer) const {
    constexpr int digitBits = 4;
    const int leadingZeros = std::countl_zero(value_ | 1U) / digitBits;
    for (int shift = (15 - leadingZeros) * digitBits; shift >= 0; shift -= digitBits) {
        *buffer++ = L"0123456789ABCDEF"[(value_ >> shift) & 15U];
    }
    *buffer = L'\0';
    return true;
}
