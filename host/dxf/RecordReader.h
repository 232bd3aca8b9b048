#pragma once

#include "dxf/DxfRecord.h"
#include "dxf/TagCursor.h"

#include <string>

namespace host_dxf {

/// Reads a drawing file record by record. Comments are passed over; they stay within the range of
/// the record they follow.
class RecordReader {
public:
    /// From the start of the file, or from a group 0 at `start` on.
    explicit RecordReader(const DxfSource& source);
    RecordReader(const DxfSource& source, const FilePosition& start);

    /// The next group, not yet taken. Its code is `endOfFile` behind the last one.
    const DxfTag& peek() const { return next_; }
    static constexpr int endOfFile = -32768;

    /// True when the next group starts a record of that type.
    bool atRecord(std::string_view type) const { return next_.code == 0 && next_.text == type; }

    /// Passes over the next group. Throws DxfFailure when the file is damaged behind it.
    void skip() { advance(); }

    /// Reads the record that starts here into `record`. Throws DxfFailure when no record starts
    /// here, when the file ends, or when a group in it is damaged.
    void read(DxfRecord& record);

    /// Throws DxfFailure at the next group: `expected` was to come.
    [[noreturn]] void failExpecting(const std::string& expected) const;

    /// Goes on from a group 0 at `start`.
    void moveTo(const DxfSource& source, const FilePosition& start);

private:
    void advance();

    TagCursor cursor_;
    DxfTag next_;
};

} // namespace host_dxf
