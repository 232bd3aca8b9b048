#include "dxf/TagCursor.h"

#include "dxf/Numbers.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>
#include <string>

namespace host_dxf {

namespace {

template<class T>
T littleEndian(std::string_view bytes) {
    std::uint64_t value = 0;
    for (std::size_t i = 0; i < sizeof(T); ++i) {
        value |= static_cast<std::uint64_t>(static_cast<unsigned char>(bytes[i])) << (8 * i);
    }
    return static_cast<T>(value);
}

double littleEndianReal(std::string_view bytes) {
    const auto bits = littleEndian<std::uint64_t>(bytes);
    double value = 0.0;
    std::memcpy(&value, &bits, sizeof value);
    return value;
}

/// The number of a code in the usual spelling, blanks and one to four digits; -1 for any other.
int plainCode(std::string_view line) {
    constexpr std::size_t mostDigits = 4;
    const std::size_t first = std::min(line.find_first_not_of(' '), line.size());
    if (first == line.size() || line.size() - first > mostDigits) {
        return -1;
    }
    int code = 0;
    for (const char digit : line.substr(first)) {
        if (digit < '0' || digit > '9') {
            return -1;
        }
        code = code * 10 + (digit - '0');
    }
    return code;
}

std::string groupName(int code) {
    return "group " + std::to_string(code);
}

} // namespace

TagCursor::TagCursor(const DxfSource& source)
    : source_(&source), bytes_(source.bytes()), offset_(source.firstOffset()), line_(1) {}

TagCursor::TagCursor(const DxfSource& source, std::size_t begin, std::size_t end, std::size_t line)
    : source_(&source), bytes_(source.bytes().substr(0, end)),
      offset_(begin < bytes_.size() ? begin : bytes_.size()), line_(line) {
    source.reads(offset_);
}

bool TagCursor::next(DxfTag& tag) {
    if (!source_->isText()) {
        return nextBinary(tag);
    }
    const bool found = nextText(tag);
    if (found) {
        parseText(tag);
    }
    return found;
}

bool TagCursor::nextUnparsed(DxfTag& tag) {
    return source_->isText() ? nextText(tag) : nextBinary(tag);
}

std::string_view TagCursor::textHere() {
    return source_->isText() ? takeLine() : takeTerminated(offset_);
}

FilePosition TagCursor::position() const {
    return {source_->isText() ? line_ : 0, offset_};
}

std::string_view TagCursor::takeLine() {
    const char* const start = bytes_.data() + offset_;
    const std::size_t left = bytes_.size() - offset_;
    const void* const found = std::memchr(start, source_->lineEnd(), left);
    const std::size_t length =
        found == nullptr ? left : static_cast<std::size_t>(static_cast<const char*>(found) - start);
    offset_ += found == nullptr ? left : length + 1;
    ++line_;
    const bool carriageReturn = length > 0 && start[length - 1] == '\r';
    return {start, carriageReturn ? length - 1 : length};
}

bool TagCursor::onlyBlanksLeft() const {
    return bytes_.find_first_not_of(" \t\r\n\x1a", offset_) == std::string_view::npos;
}

int TagCursor::parseCode(std::string_view line) const {
    std::int64_t code = 0;
    if (parseInteger(line, code) && code >= std::numeric_limits<std::int16_t>::min() &&
        code <= std::numeric_limits<std::int16_t>::max()) {
        return static_cast<int>(code);
    }
    throw DxfFailure({line_ - 1, offset_},
                     "expected a group code, found " + quotedForMessage(line));
}

bool TagCursor::nextText(DxfTag& tag) {
    const std::size_t begin = offset_;
    if (begin >= bytes_.size()) {
        return false;
    }
    const std::string_view codeLine = takeLine();
    tag.code = plainCode(codeLine);
    if (tag.code < 0) {
        if (codeLine.find_first_not_of(" \t\x1a") == std::string_view::npos && onlyBlanksLeft()) {
            offset_ = bytes_.size();
            return false;
        }
        tag.code = parseCode(codeLine);
    }
    tag.kind = valueKind(tag.code);
    tag.begin = begin;
    tag.line = static_cast<std::uint32_t>(line_ - 1);
    if (offset_ >= bytes_.size()) {
        throw DxfFailure({line_, offset_},
                         "the file ends before the value of " + groupName(tag.code));
    }
    tag.text = takeLine();
    tag.end = offset_;
    if (tag.code == 0) {
        tag.text = trimBlanks(tag.text);
    }
    return true;
}

void TagCursor::parseText(DxfTag& tag) const {
    if (tag.kind == ValueKind::Real) {
        if (!parseReal(tag.text, tag.real)) {
            throw DxfFailure(tag.valuePosition(), groupName(tag.code) + " needs a number, found " +
                                                      quotedForMessage(tag.text));
        }
    } else if (isInteger(tag.kind)) {
        if (!parseInteger(tag.text, tag.integer)) {
            throw DxfFailure(tag.valuePosition(), groupName(tag.code) +
                                                      " needs a whole number, found " +
                                                      quotedForMessage(tag.text));
        }
    } else if (tag.kind == ValueKind::Chunk && !isHexBytes(tag.text)) {
        throw DxfFailure(tag.valuePosition(), groupName(tag.code) +
                                                  " needs hexadecimal bytes, found " +
                                                  quotedForMessage(tag.text));
    }
}

std::string_view TagCursor::takeBytes(std::size_t count, std::size_t begin) {
    if (bytes_.size() - offset_ < count) {
        throw DxfFailure({0, begin}, "the file ends inside a group");
    }
    const std::string_view taken = bytes_.substr(offset_, count);
    offset_ += count;
    return taken;
}

std::string_view TagCursor::takeTerminated(std::size_t begin) {
    const std::size_t terminator = bytes_.find('\0', offset_);
    if (terminator == std::string_view::npos) {
        throw DxfFailure({0, begin}, "the file ends inside a text");
    }
    const std::string_view taken = bytes_.substr(offset_, terminator - offset_);
    offset_ = terminator + 1;
    return taken;
}

int TagCursor::takeCode(std::size_t begin) {
    constexpr int escape = 255;
    if (source_->form() == FileForm::BinaryShortCodes) {
        const int code = littleEndian<std::uint8_t>(takeBytes(1, begin));
        if (code != escape) {
            return code;
        }
    }
    return littleEndian<std::int16_t>(takeBytes(2, begin));
}

bool TagCursor::nextBinary(DxfTag& tag) {
    if (offset_ >= bytes_.size()) {
        return false;
    }
    tag.begin = offset_;
    tag.line = 0;
    tag.code = takeCode(tag.begin);
    tag.kind = valueKind(tag.code);
    takeBinaryValue(tag);
    tag.end = offset_;
    return true;
}

void TagCursor::takeBinaryValue(DxfTag& tag) {
    switch (tag.kind) {
    case ValueKind::Text:
    case ValueKind::Handle:
    case ValueKind::Comment:
        tag.text = takeTerminated(tag.begin);
        break;
    case ValueKind::Real:
        tag.text = takeBytes(8, tag.begin);
        tag.real = littleEndianReal(tag.text);
        if (!std::isfinite(tag.real)) {
            throw DxfFailure(tag.position(), groupName(tag.code) + " needs a finite number");
        }
        break;
    case ValueKind::Int16:
        tag.text = takeBytes(2, tag.begin);
        tag.integer = littleEndian<std::int16_t>(tag.text);
        break;
    case ValueKind::Int32:
        tag.text = takeBytes(4, tag.begin);
        tag.integer = littleEndian<std::int32_t>(tag.text);
        break;
    case ValueKind::Int64:
        tag.text = takeBytes(8, tag.begin);
        tag.integer = littleEndian<std::int64_t>(tag.text);
        break;
    case ValueKind::Bool:
        tag.text = takeBytes(1, tag.begin);
        tag.integer = littleEndian<std::uint8_t>(tag.text);
        break;
    case ValueKind::Chunk:
        tag.text = takeBytes(littleEndian<std::uint8_t>(takeBytes(1, tag.begin)), tag.begin);
        break;
    case ValueKind::Unspecified:
        // Without a kind there is no length, so nothing behind this place can be trusted.
        throw DxfFailure(tag.position(), "unknown " + groupName(tag.code));
    }
}

} // namespace host_dxf
