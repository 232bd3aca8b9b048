#pragma once

#include "platform/KeptBytes.h"

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

namespace host_dxf {

/// The two ways a DXF file writes its groups; binary files differ in the width of a group code.
enum class FileForm {
    Text,
    BinaryShortCodes, ///< R12 and before: one byte, 255 announces a two-byte code
    BinaryWideCodes   ///< R13 and later: two bytes
};

/// The bytes of one drawing file, read once and never changed. Every part of a drawing that is kept
/// as it stands in the file is a range of offsets into these bytes.
class DxfSource {
public:
    /// Reads the whole file. Returns null and one line without line number in `error` when that
    /// fails. The file is closed again before this returns, and may change afterwards; how its
    /// bytes are kept is told at KeptBytes.
    static std::shared_ptr<const DxfSource> read(const std::string& utf8Path, std::string& error);

    /// A source over a copy of `bytes`; `name` stands for the file in messages.
    static std::shared_ptr<const DxfSource> fromBytes(std::string_view bytes, std::string name);

    std::string_view bytes() const { return bytes_.view(); }
    /// Tells that the bytes from this offset on are read next; see KeptBytes.
    void reads(std::size_t offset) const noexcept { bytes_.reads(offset); }
    const std::string& name() const { return name_; }
    FileForm form() const { return form_; }
    bool isText() const { return form_ == FileForm::Text; }

    /// Offset of the first group: behind the binary sentinel or a byte-order mark.
    std::size_t firstOffset() const { return firstOffset_; }

    /// The file starts with the UTF-8 byte-order mark.
    bool hasByteOrderMark() const { return hasByteOrderMark_; }

    /// The byte that ends a line: '\n', or '\r' in a text file that has no '\n' at all.
    char lineEnd() const { return lineEnd_; }

    DxfSource(platform_memory::KeptBytes bytes, std::string name);

private:
    void recogniseForm();

    platform_memory::KeptBytes bytes_;
    std::string name_;
    FileForm form_ = FileForm::Text;
    std::size_t firstOffset_ = 0;
    bool hasByteOrderMark_ = false;
    char lineEnd_ = '\n';
};

} // namespace host_dxf
