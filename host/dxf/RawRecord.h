#pragma once

#include "database/SourceRange.h"
#include "dxf/DxfSource.h"
#include "dxf/DxfTag.h"
#include "dxf/RecordSorter.h"

#include <cstddef>
#include <string_view>
#include <vector>

namespace host_dxf {

/// A record with every group that stands in the file, for changing some of them.
struct RawRecord {
    struct Group {
        DxfTag tag;
        RecordPart part = RecordPart::Fields;
        bool inExtensionDictionary = false;
    };

    /// The first record of a range, up to the next group 0 or the end of the range. The range must
    /// be one that was read without damage.
    RawRecord(const DxfSource& file, const SourceRange& range);

    std::string_view type;
    std::vector<Group> groups; ///< behind the group 0, comments left out
    std::size_t begin = 0;
    std::size_t bodyBegin = 0; ///< behind the group 0
    std::size_t end = 0;       ///< of the last group that is no comment

    /// The first field of that code; nullptr without one.
    const DxfTag* field(int code) const;
    /// The first marker of that name at or behind an offset; nullptr without one.
    const DxfTag* marker(std::string_view name, std::size_t from = 0) const;
    /// Where the extended data start; `end` without any.
    std::size_t xdataBegin() const;
};

/// The ranges of the single records in a range: an entity's own one and those that belong to it.
std::vector<SourceRange> recordsIn(const DxfSource& file, const SourceRange& range);

} // namespace host_dxf
