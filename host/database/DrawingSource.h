#pragma once

#include "database/SourceRange.h"
#include "platform/CString.h"

struct resbuf;

namespace host_db {

/// The file behind a database: whoever reads a drawing derives from this class and hands the object
/// to the database, which owns it and thereby the file's bytes until it is closed.
///
/// Texts of extended data stay in the file's bytes and are decoded each time they are asked for, so
/// that a drawing of a million entities costs no text before a caller wants one.
class DrawingSource {
public:
    DrawingSource() = default;
    DrawingSource(const DrawingSource&) = delete;
    DrawingSource& operator=(const DrawingSource&) = delete;
    virtual ~DrawingSource();

    /// Decodes the extended data of the object with these bytes: for each application a 1001 item,
    /// then its items in file order. The chain belongs to the caller (acutRelRb); nullptr when the
    /// range holds none. The data ends where the next tag is not of group 1000 to 1071, at the
    /// latest at `range.end`.
    virtual resbuf* readXdata(const host_dxf::SourceRange& range) const = 0;

    /// Finds the first section of `application` (compared without regard to case), which has that
    /// number in the database, and the first group 1000 item in it. Returns whether the section is
    /// there; `text` is set to the item's text, to the empty text when the section has none, and
    /// left alone when there is no section. This form goes through readXdata; a source overrides it
    /// where it can do better.
    virtual bool firstXdataString(const host_dxf::SourceRange& range, const wchar_t* application,
                                  std::uint32_t number, CString& text) const;
};

} // namespace host_db
