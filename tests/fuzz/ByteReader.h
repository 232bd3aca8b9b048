#pragma once

#include "EmbeddedHost.h"

#include <cstddef>
#include <cstdint>
#include <string>

namespace fuzz {

/// Takes values from a run of bytes, one after the other; behind the end everything is zero.
class ByteReader {
public:
    ByteReader(const std::uint8_t* data, std::size_t size) : next_(data), end_(data + size) {}

    bool atEnd() const { return next_ == end_; }
    std::uint8_t byte() { return atEnd() ? std::uint8_t{0} : *next_++; }
    /// From 0 to `count` - 1; `count` is 1 to 256.
    int below(int count) { return byte() % count; }
    bool oneIn(int count) { return below(count) == 0; }
    std::int32_t number();
    /// A coordinate: mostly on a grid of 1/8 in a field of 32 by 32, so that things meet; at times
    /// a number of a survey, of no sense, or of any bits at all.
    double coordinate();
    AcGePoint3d point();
    /// A text of up to `longest` characters that a drawing may hold, or may not.
    std::wstring text(int longest);

private:
    double anyDouble();

    const std::uint8_t* next_;
    const std::uint8_t* end_;
};

} // namespace fuzz
