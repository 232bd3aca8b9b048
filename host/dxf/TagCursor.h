#pragma once

#include "dxf/DxfSource.h"
#include "dxf/DxfTag.h"

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace host_dxf {

/// Walks through the groups of a drawing file or of a range of it, in both forms of the format.
/// Reads forward once, allocates nothing. The source must outlive the cursor and its tags.
class TagCursor {
public:
    /// All groups of the file.
    explicit TagCursor(const DxfSource& source);

    /// The groups in [begin, end), which must start with a group code; `line` is that code's line
    /// (any value for a binary file). Offsets beyond the file are taken as its end.
    TagCursor(const DxfSource& source, std::size_t begin, std::size_t end, std::size_t line);

    /// Gives the next group, comments included; false at the end. Blank lines at the end of a text
    /// file are no groups. Throws DxfFailure when there is no whole group here or its number does
    /// not parse.
    bool next(DxfTag& tag);

    /// The same without looking at numbers: `real` and `integer` keep what they were. In a binary
    /// file no different from next.
    bool nextUnparsed(DxfTag& tag);

    /// The value of a group of text that begins here, behind the code.
    std::string_view textHere();

    /// Where the next group code stands.
    FilePosition position() const;

    const DxfSource& source() const { return *source_; }

private:
    std::string_view takeLine();
    bool onlyBlanksLeft() const;
    int parseCode(std::string_view line) const;
    void parseText(DxfTag& tag) const;

    bool nextText(DxfTag& tag);
    bool nextBinary(DxfTag& tag);
    int takeCode(std::size_t begin);
    std::string_view takeBytes(std::size_t count, std::size_t begin);
    std::string_view takeTerminated(std::size_t begin);
    void takeBinaryValue(DxfTag& tag);

    const DxfSource* source_;
    std::string_view bytes_; ///< cut at the end of the range
    std::size_t offset_;
    std::size_t line_;
};

} // namespace host_dxf
