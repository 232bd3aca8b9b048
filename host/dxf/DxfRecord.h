#pragma once

#include "database/SourceRange.h"
#include "dxf/DxfTag.h"

#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

namespace host_dxf {

/// One item of a drawing file: a group 0 and all groups up to the next group 0.
///
/// The lists keep their storage from one record to the next, so a reader that goes through a file
/// with one DxfRecord allocates only for the longest.
struct DxfRecord {
    std::string_view type; ///< value of the group 0
    FilePosition position; ///< where the group 0 stands
    SourceRange range;     ///< from the group 0 to the next one

    /// The groups behind the group 0, without comments, without bracketed application groups (102
    /// "{..." to "}"), without embedded objects (behind 101) and without extended data. In an
    /// XRECORD everything behind its own subclass marker is data and kept.
    std::vector<DxfTag> tags;
    /// The group 1001 of each section of extended data.
    std::vector<DxfTag> applications;
    /// The first group 1000 of each section up to where the extended data end, which is before the
    /// last application when something else stands between them; without data() for none.
    std::vector<std::string_view> firstTexts;
    /// The extension dictionary's handle, 0 when there is none.
    std::uint64_t extensionDictionary = 0;

    bool is(std::string_view name) const { return type == name; }

    /// The first group of that code; nullptr when there is none.
    const DxfTag* find(int code) const;

    /// Value of the first group of that code, or `missing`. The code must be of the kind asked for.
    double real(int code, double missing) const;
    std::int64_t integer(int code, std::int64_t missing) const;
    std::string_view text(int code) const;
    /// The first handle of that code, 0 without one. Throws DxfFailure when it is no handle.
    std::uint64_t handle(int code) const;

    /// The groups behind the marker 100 `name` up to the next marker; all groups when the record
    /// has no markers at all (R12), none when it has only others.
    std::span<const DxfTag> subclass(std::string_view name) const;
};

/// The number that a handle group stands for. Throws DxfFailure when it is none.
std::uint64_t handleOf(const DxfTag& tag);

/// The first group of `code` in a span of groups; nullptr when there is none.
const DxfTag* findIn(std::span<const DxfTag> tags, int code);

} // namespace host_dxf
