#include "dxf/TagWriter.h"

#include "dxf/GroupCode.h"
#include "dxf/Numbers.h"
#include "dxf/SaveFailure.h"
#include "dxf/TagCursor.h"

#include <cmath>
#include <cstring>
#include <utility>

namespace host_dxf {

namespace {

template<class... Cases>
struct Overloaded : Cases... {
    using Cases::operator()...;
};
template<class... Cases>
Overloaded(Cases...) -> Overloaded<Cases...>;

std::string hexOf(std::string_view bytes) {
    constexpr const char* digits = "0123456789ABCDEF";
    std::string hex;
    hex.reserve(bytes.size() * 2);
    for (const char byte : bytes) {
        const auto value = static_cast<unsigned char>(byte);
        hex += digits[value >> 4];
        hex += digits[value & 15U];
    }
    return hex;
}

int widthOf(ValueKind kind) {
    switch (kind) {
    case ValueKind::Bool:
        return 1;
    case ValueKind::Int16:
        return 2;
    case ValueKind::Int64:
        return 8;
    default:
        return 4;
    }
}

void requireFinite(int code, double value) {
    if (!std::isfinite(value)) {
        throw SaveFailure("group " + std::to_string(code) + " would hold no finite number");
    }
}

} // namespace

TagStyle TagStyle::of(const DxfSource& file) {
    TagStyle style;
    style.form = file.form();
    const std::string_view bytes = file.bytes().substr(file.firstOffset());
    const std::size_t end = bytes.find(file.lineEnd());
    if (!file.isText() || end == std::string_view::npos) {
        return style;
    }
    const bool carriageReturn = file.lineEnd() == '\n' && end > 0 && bytes[end - 1] == '\r';
    style.lineEnd = carriageReturn ? "\r\n" : std::string(1, file.lineEnd());
    constexpr int firstWideCode = 100;
    TagCursor cursor(file);
    DxfTag tag;
    while (cursor.nextUnparsed(tag) && tag.code >= firstWideCode) {
    }
    style.alignsCodes = file.bytes()[tag.begin] == ' ';
    return style;
}

void TagWriter::code(int code) {
    constexpr int escape = 255;
    if (isText()) {
        std::string text = std::to_string(code);
        if (style_.alignsCodes && text.size() < 3) {
            text.insert(0, 3 - text.size(), ' ');
        }
        bytes_ += text + style_.lineEnd;
        return;
    }
    const auto value = static_cast<std::uint64_t>(code);
    if (style_.form == FileForm::BinaryShortCodes) {
        if (code < escape) {
            littleEndian(value, 1);
            return;
        }
        littleEndian(escape, 1);
    }
    littleEndian(value, 2);
}

void TagWriter::littleEndian(std::uint64_t value, int width) {
    for (int i = 0; i < width; ++i) {
        bytes_ += static_cast<char>(value >> (8 * i) & 0xFF);
    }
}

void TagWriter::line(std::string_view value) {
    bytes_ += value;
    if (isText()) {
        bytes_ += style_.lineEnd;
    } else {
        bytes_ += '\0';
    }
}

void TagWriter::plain(int groupCode, std::string_view value) {
    code(groupCode);
    line(value);
}

void TagWriter::text(int groupCode, std::wstring_view value) {
    plain(groupCode, encoder_.encode(value));
}

void TagWriter::handle(int groupCode, std::uint64_t value) {
    plain(groupCode, handleText(value));
}

void TagWriter::real(int groupCode, double value) {
    requireFinite(groupCode, value);
    if (isText()) {
        plain(groupCode, realText(value));
        return;
    }
    std::uint64_t bits = 0;
    std::memcpy(&bits, &value, sizeof bits);
    code(groupCode);
    littleEndian(bits, 8);
}

void TagWriter::integer(int groupCode, std::int64_t value) {
    if (isText()) {
        plain(groupCode, std::to_string(value));
        return;
    }
    code(groupCode);
    littleEndian(static_cast<std::uint64_t>(value), widthOf(valueKind(groupCode)));
}

void TagWriter::chunk(int groupCode, std::string_view value) {
    constexpr std::size_t longest = 255;
    if (isText()) {
        plain(groupCode, hexOf(value));
        return;
    }
    do {
        const std::string_view piece = value.substr(0, longest);
        code(groupCode);
        littleEndian(piece.size(), 1);
        bytes_ += piece;
        value.remove_prefix(piece.size());
    } while (!value.empty());
}

void TagWriter::field(const Field& field) {
    const int groupCode = field.code;
    std::visit(Overloaded{[&](double value) { real(groupCode, value); },
                          [&](std::int64_t value) { integer(groupCode, value); },
                          [&](const std::wstring& value) { text(groupCode, value); },
                          [&](const NameValue& value) { text(groupCode, value.name); },
                          [&](const HandleValue& value) { handle(groupCode, value.handle); },
                          [&](const PlainValue& value) { plain(groupCode, value.text); },
                          [&](const std::string& value) { chunk(groupCode, value); }},
               field.value);
}

void TagWriter::fields(const Fields& fields) {
    for (const Field& each : fields) {
        if (!each.optional) {
            field(each);
        }
    }
}

std::string TagWriter::valueText(const Field& field) const {
    TagWriter single(style_, encoder_);
    single.field(field);
    std::string bytes = single.take();
    bytes.erase(0, bytes.find(style_.lineEnd) + style_.lineEnd.size());
    bytes.resize(bytes.size() - style_.lineEnd.size());
    return bytes;
}

std::string TagWriter::take() {
    return std::exchange(bytes_, {});
}

} // namespace host_dxf
