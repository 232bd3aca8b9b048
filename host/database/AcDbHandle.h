#pragma once

#include "platform/PlatformTypes.h"

#include <compare>
#include <cstdint>

/// The persistent name of an object within its database: a number written in hexadecimal.
/// Zero is the null handle.
class AcDbHandle {
public:
    AcDbHandle() = default;
    explicit AcDbHandle(std::uint64_t value) : value_(value) {}
    /// Reads upper or lower case hexadecimal digits; anything else, or more than 16 digits, gives
    /// the null handle.
    explicit AcDbHandle(const ACHAR* text);

    bool isNull() const { return value_ == 0; }
    void setNull() { value_ = 0; }
    std::uint64_t value() const { return value_; }
    Adesk::UInt32 low() const { return static_cast<Adesk::UInt32>(value_ & 0xFFFFFFFFU); }
    Adesk::UInt32 high() const { return static_cast<Adesk::UInt32>(value_ >> 32); }

    /// Writes upper-case hexadecimal digits without leading zeros and a terminating zero. The
    /// buffer must have room for 17 characters. Returns true.
    bool getIntoAsciiBuffer(ACHAR* buffer) const;

    friend bool operator==(const AcDbHandle&, const AcDbHandle&) = default;
    friend std::strong_ordering operator<=>(const AcDbHandle&, const AcDbHandle&) = default;

private:
    std::uint64_t value_ = 0;
};
