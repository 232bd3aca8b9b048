#pragma once

#include "dxf/DxfSource.h"
#include "dxf/RecordDescription.h"
#include "dxf/TextEncoder.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace host_dxf {

/// How a drawing file spells its groups: new ones are written like those around them.
struct TagStyle {
    FileForm form = FileForm::Text;
    std::string lineEnd = "\n";
    bool alignsCodes = false; ///< codes below 100 are filled up to three characters

    /// The style of the first groups of a file.
    static TagStyle of(const DxfSource& file);
};

/// Writes groups in one file's form and encoding.
class TagWriter {
public:
    /// `encoder` must outlive the writer.
    TagWriter(const TagStyle& style, const TextEncoder& encoder)
        : style_(style), encoder_(encoder) {}

    void text(int code, std::wstring_view value);
    /// Bytes that need no encoding: markers, types, what stood in the file already.
    void plain(int code, std::string_view value);
    /// Throws SaveFailure when the number is not finite.
    void real(int code, double value);
    void integer(int code, std::int64_t value);
    void handle(int code, std::uint64_t value);
    /// The bytes of a chunk. A group of a binary file holds at most 255, so more take several.
    void chunk(int code, std::string_view value);
    /// Whole groups in the file's form, as they are.
    void groups(std::string_view bytes) { bytes_ += bytes; }
    void field(const Field& field);
    void fields(const Fields& fields);

    /// Value of a text file's group as it stands on its line, without the line end.
    std::string valueText(const Field& field) const;

    const std::string& bytes() const { return bytes_; }
    std::string take();

private:
    bool isText() const { return style_.form == FileForm::Text; }
    void code(int code);
    void line(std::string_view value);
    void littleEndian(std::uint64_t value, int width);

    TagStyle style_;
    const TextEncoder& encoder_;
    std::string bytes_;
};

} // namespace host_dxf
