#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace dxf_test {

/// Writes the groups of a text drawing, one line for the code and one for the value.
class TextFile {
public:
    explicit TextFile(std::string lineEnd = "\n") : lineEnd_(std::move(lineEnd)) {}

    TextFile& group(int code, std::string_view value);
    TextFile& group(int code, double value);
    /// "0 SECTION, 2 name" and its end.
    TextFile& section(std::string_view name);
    TextFile& endSection() { return group(0, "ENDSEC"); }
    TextFile& endOfFile() { return group(0, "EOF"); }
    TextFile& raw(std::string_view bytes);

    const std::string& bytes() const { return bytes_; }
    /// Number of lines so far.
    std::size_t lines() const { return lines_; }

private:
    std::string lineEnd_;
    std::string bytes_;
    std::size_t lines_ = 0;
};

/// Writes the groups of a binary drawing; the value's type is the caller's choice.
class BinaryFile {
public:
    enum class Codes { Short, Wide };
    explicit BinaryFile(Codes codes);

    BinaryFile& text(int code, std::string_view value);
    BinaryFile& real(int code, double value);
    BinaryFile& int16(int code, std::int16_t value);
    BinaryFile& int32(int code, std::int32_t value);
    BinaryFile& int64(int code, std::int64_t value);
    BinaryFile& boolean(int code, bool value);
    BinaryFile& chunk(int code, std::string_view value);

    const std::string& bytes() const { return bytes_; }

private:
    void code(int code);
    void number(std::uint64_t value, int width);

    Codes codes_;
    std::string bytes_;
};

} // namespace dxf_test
