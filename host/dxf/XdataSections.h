#pragma once

#include "database/SourceRange.h"
#include "dxf/TagCursor.h"

#include <cstddef>
#include <string_view>
#include <vector>

namespace host_dxf {

/// One application's part of an object's extended data, undecoded.
struct XdataSection {
    std::string_view application;
    std::string_view text; ///< of the first item of group 1000
    bool hasText = false;
};

/// The sections of an object's extended data, read as far as they are asked for.
///
/// Whoever asks an object for one text mostly asks it for others as well; what was read once is not
/// read again until another object has its turn.
class XdataSections {
public:
    explicit XdataSections(const DxfSource& file);

    /// Turns to the object with these bytes, which has extended data.
    void turnTo(const SourceRange& range);
    /// The section of that number in file order, counted from 0; nullptr behind the last. Valid
    /// until the next call.
    const XdataSection* at(std::size_t index);

private:
    bool nextTag(DxfTag& tag);
    void readSection();

    const DxfSource& file_;
    TagCursor cursor_;
    std::size_t object_; ///< where the object's bytes begin
    std::vector<XdataSection> sections_;
    DxfTag tag_; ///< the first group behind the sections read
    bool hasTag_ = false;
};

} // namespace host_dxf
