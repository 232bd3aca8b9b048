#pragma once

#include "dxf/DxfTag.h"

#include <string_view>

namespace host_dxf {

/// The part of a record that a group belongs to.
enum class RecordPart {
    Fields,     ///< handle, owner, markers, values
    Bracket,    ///< an application's groups, from 102 "{..." to 102 "}", both included
    Embedded,   ///< an embedded object, from its group 101 on
    Xdata,      ///< extended data, from a group 1001 on
    XrecordData ///< the free items of an XRECORD, behind its own subclass marker
};

/// Tells for each group of one record, asked in file order and without the group 0 and comments,
/// which part it belongs to.
class RecordSorter {
public:
    /// `type` is the value of the record's group 0 and must outlive the sorter.
    explicit RecordSorter(std::string_view type) : type_(type) {}

    RecordPart next(const DxfTag& tag);

    /// The group asked about last stands inside the bracket of the extension dictionary.
    bool inExtensionDictionary() const { return inExtensionDictionary_; }

private:
    std::string_view type_;
    RecordPart part_ = RecordPart::Fields;
    bool inExtensionDictionary_ = false;
};

} // namespace host_dxf
