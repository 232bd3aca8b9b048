#include "dxf/ItemCollector.h"

#include "database/ResultBuffer.h"
#include "dxf/Numbers.h"

#include <string>
#include <string_view>
#include <utility>

namespace host_dxf {

namespace {

CString wideText(const TextDecoder& decoder, std::string_view bytes) {
    return CString(std::wstring_view(decoder.decode(bytes)));
}

std::string bytesOfHex(std::string_view text) {
    const std::string_view digits = trimBlanks(text);
    std::string bytes;
    bytes.reserve(digits.size() / 2);
    for (std::size_t i = 0; i + 1 < digits.size(); i += 2) {
        const int high = hexDigit(static_cast<unsigned char>(digits[i]));
        const int low = hexDigit(static_cast<unsigned char>(digits[i + 1]));
        bytes += static_cast<char>(high * 16 + low);
    }
    return bytes;
}

} // namespace

void ItemCollector::add(const DxfTag& tag) {
    const host_db::ValueKind kind = host_db::valueKind(tag.code);
    const bool hasValue = kind != host_db::ValueKind::Unknown && kind != host_db::ValueKind::None;
    if (!hasValue || completesPoint(tag)) {
        return;
    }
    items_.push_back(itemOf(tag));
    const bool point = std::holds_alternative<AcGePoint3d>(items_.back().value);
    pointCode_ = point ? tag.code : 0;
    coordinates_ = 1;
}

bool ItemCollector::completesPoint(const DxfTag& tag) {
    if (pointCode_ == 0 || coordinates_ > 2 || tag.code != pointCode_ + 10 * coordinates_) {
        return false;
    }
    AcGePoint3d& point = std::get<AcGePoint3d>(items_.back().value);
    (coordinates_ == 1 ? point.y : point.z) = tag.real;
    ++coordinates_;
    return true;
}

host_db::ResultItem ItemCollector::itemOf(const DxfTag& tag) const {
    host_db::ResultItem item;
    item.type = static_cast<short>(tag.code);
    if (host_db::valueKind(tag.code) == host_db::ValueKind::Name) {
        std::uint64_t handle = 0;
        item.value = parseHandle(tag.text, handle) ? resolver_(handle) : std::int64_t{0};
    } else if (host_db::valueKind(tag.code) == host_db::ValueKind::Point) {
        item.value = AcGePoint3d(tag.real, 0.0, 0.0);
    } else if (tag.kind == ValueKind::Real) {
        item.value = tag.real;
    } else if (isInteger(tag.kind)) {
        item.value = tag.integer;
    } else if (tag.kind == ValueKind::Chunk) {
        // A text file writes bytes as digits; in a binary one they stand as they are.
        item.value = tag.line == 0 ? std::string(tag.text) : bytesOfHex(tag.text);
    } else {
        item.value = wideText(decoder_, tag.text);
    }
    return item;
}

host_db::ResultItems ItemCollector::take() {
    return std::exchange(items_, {});
}

} // namespace host_dxf
