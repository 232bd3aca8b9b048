#include "DxfFile.h"

#include <charconv>
#include <cstring>

namespace dxf_test {

TextFile& TextFile::group(int code, std::string_view value) {
    bytes_ += std::to_string(code);
    bytes_ += lineEnd_;
    bytes_ += value;
    bytes_ += lineEnd_;
    lines_ += 2;
    return *this;
}

TextFile& TextFile::group(int code, double value) {
    char digits[40];
    const auto end = std::to_chars(digits, digits + sizeof digits, value).ptr;
    return group(code, std::string_view(digits, static_cast<std::size_t>(end - digits)));
}

TextFile& TextFile::section(std::string_view name) {
    return group(0, "SECTION").group(2, name);
}

TextFile& TextFile::raw(std::string_view bytes) {
    bytes_ += bytes;
    for (const char byte : bytes) {
        lines_ += byte == '\n' ? 1 : 0;
    }
    return *this;
}

BinaryFile::BinaryFile(Codes codes) : codes_(codes) {
    bytes_.assign("AutoCAD Binary DXF\r\n\x1a\0", 22);
}

void BinaryFile::code(int code) {
    if (codes_ == Codes::Short) {
        if (code < 255) {
            number(static_cast<std::uint64_t>(code), 1);
            return;
        }
        number(255, 1);
    }
    number(static_cast<std::uint64_t>(code), 2);
}

void BinaryFile::number(std::uint64_t value, int width) {
    for (int i = 0; i < width; ++i) {
        bytes_ += static_cast<char>(value >> (8 * i) & 0xFF);
    }
}

BinaryFile& BinaryFile::text(int groupCode, std::string_view value) {
    code(groupCode);
    bytes_ += value;
    bytes_ += '\0';
    return *this;
}

BinaryFile& BinaryFile::real(int groupCode, double value) {
    std::uint64_t bits = 0;
    std::memcpy(&bits, &value, sizeof bits);
    code(groupCode);
    number(bits, 8);
    return *this;
}

BinaryFile& BinaryFile::int16(int groupCode, std::int16_t value) {
    code(groupCode);
    number(static_cast<std::uint16_t>(value), 2);
    return *this;
}

BinaryFile& BinaryFile::int32(int groupCode, std::int32_t value) {
    code(groupCode);
    number(static_cast<std::uint32_t>(value), 4);
    return *this;
}

BinaryFile& BinaryFile::int64(int groupCode, std::int64_t value) {
    code(groupCode);
    number(static_cast<std::uint64_t>(value), 8);
    return *this;
}

BinaryFile& BinaryFile::boolean(int groupCode, bool value) {
    code(groupCode);
    number(value ? 1 : 0, 1);
    return *this;
}

BinaryFile& BinaryFile::chunk(int groupCode, std::string_view value) {
    code(groupCode);
    number(value.size(), 1);
    bytes_ += value;
    return *this;
}

} // namespace dxf_test
