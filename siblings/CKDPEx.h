#pragma once

#include "platform/CString.h"
#include "platform/CStringArray.h"

#include <memory>

namespace siblings {
class KdpDocument;
}

/// One settings file held in memory.
///
/// The file is UTF-8 text (a byte-order mark and CRLF line ends are accepted) with one
/// `key path = value` a line; a line whose first character other than blanks and tabs is `#` or `;`
/// is a comment. Keys are paths: `1\GroupType` is the sub-key `GroupType` of the entry `1`. Keys
/// are compared letter for letter. Of a key that stands twice the first line is read and written.
///
/// An object holds one file at a time and serves one thread. Nothing is written before `Save`.
class CKDPEx {
public:
    /// An empty object: no entry, no key is found.
    CKDPEx();
    CKDPEx(const CKDPEx&) = delete;
    CKDPEx& operator=(const CKDPEx&) = delete;
    /// Releases everything and saves nothing.
    virtual ~CKDPEx();

    /// Replaces the object's content by the file at `path`, in which both `/` and `\` separate.
    /// Gives 1, or 0 when there is no such file, it cannot be read, it is not UTF-8, or one of its
    /// lines is neither blank, comment nor `key = value`; the object is empty then.
    /// Cost: one pass over the file.
    int Open(CString path);

    /// Writes the object's content to `path`. Lines that were not set keep their bytes, comments
    /// and line ends included. The file is replaced in one step: a temporary file beside it is
    /// written, flushed to the disk and renamed. Gives 1, or 0 on failure; a failure leaves the
    /// target as it was. A key that the format cannot carry (empty, with a line break, with blanks
    /// at its ends, ...) makes `Save` fail, for the file would read differently from the object.
    int Save(CString path);

    /// Reads the text of `key`. Gives 1 and sets `value`, or gives 0 and leaves `value` as it was
    /// when there is no such key.
    int GetSubValue(CString key, CString& value) const;
    /// The same as a 32-bit integer: the decimal prefix of the text, 0 when it has none, saturating
    /// at the limits of the type.
    int GetSubValue(CString key, int& value) const;
    /// The same as a double: the decimal prefix of the text, 0.0 when it has none.
    int GetSubValue(CString key, double& value) const;

    /// Sets the text of `key` in memory; a key that is not there is added after the last line.
    void SetSubValueW(CString key, CString value);
    /// The same for an integer, as decimal text.
    void SetSubValueW(CString key, int value);
    /// The same for a double, as the shortest decimal text that reads back as the same number.
    void SetSubValueW(CString key, double value);

    /// Number of top-level entries (keys without a backslash) in file order; a key that stands
    /// twice counts twice. At most 32767, whatever the file holds.
    short m_nSubKeyNum = 0;
    /// Keys of the top-level entries, index 0 to `m_nSubKeyNum` - 1.
    CStringArray m_SubKeyArr;

private:
    void listTopLevelKeys();

    std::unique_ptr<siblings::KdpDocument> document_;
};
