#include "ArgumentText.h"

#include "Failure.h"

#include <charconv>
#include <cmath>

namespace pipenet {

namespace {

/// A plus sign may stand before a number, as it may in a drawing.
template<class Number>
std::optional<Number> wholeNumber(std::string_view text) {
    if (text.size() > 1 && text[0] == '+' && text[1] != '-') {
        text.remove_prefix(1);
    }
    Number value{};
    const char* end = text.data() + text.size();
    const auto read = std::from_chars(text.data(), end, value);
    return read.ec == std::errc() && read.ptr == end ? std::optional(value) : std::nullopt;
}

std::optional<double> finiteNumber(std::string_view text) {
    const std::optional<double> value = wholeNumber<double>(text);
    return value && std::isfinite(*value) ? value : std::nullopt;
}

/// The numbers between the commas; nothing when one of them is none.
std::optional<std::vector<double>> coordinates(std::string_view text) {
    std::vector<double> found;
    for (;;) {
        const std::size_t comma = text.find(',');
        const std::optional<double> value = finiteNumber(text.substr(0, comma));
        if (!value) {
            return std::nullopt;
        }
        found.push_back(*value);
        if (comma == std::string_view::npos) {
            return found;
        }
        text.remove_prefix(comma + 1);
    }
}

} // namespace

AcDbHandle handleArgument(const std::string& option, const std::string& text) {
    const AcDbHandle handle(host_text::fromUtf8(text).c_str());
    if (handle.isNull()) {
        throw Failure(messages::kBadHandle, option, text);
    }
    return handle;
}

std::vector<AcDbHandle> handlesArgument(const std::string& option, const std::string& text) {
    std::vector<AcDbHandle> handles;
    std::size_t begin = 0;
    for (;;) {
        const std::size_t comma = text.find(',', begin);
        handles.push_back(handleArgument(option, text.substr(begin, comma - begin)));
        if (comma == std::string::npos) {
            return handles;
        }
        begin = comma + 1;
    }
}

double numberArgument(const std::string& option, const std::string& text,
                      std::optional<double> least, bool above) {
    const std::optional<double> value = finiteNumber(text);
    const bool tooSmall = value && least && (above ? *value <= *least : *value < *least);
    if (!value || tooSmall) {
        const std::string range =
            least ? fmt::format("{} {}", above ? "above" : "of at least", *least)
                  : "in decimal form";
        throw Failure(messages::kBadNumber, option, text, range);
    }
    return *value;
}

int integerArgument(const std::string& option, const std::string& text) {
    const std::optional<int> value = wholeNumber<int>(text);
    if (!value) {
        throw Failure(messages::kBadNumber, option, text, "without a fraction");
    }
    return *value;
}

AcGePoint3d pickArgument(const std::string& text) {
    const auto found = coordinates(text);
    if (!found || found->size() != 2) {
        throw Failure(messages::kBadPick, text);
    }
    return {(*found)[0], (*found)[1], 0.0};
}

AcGePoint3d pointArgument(const std::string& text) {
    const auto found = coordinates(text);
    if (!found || found->size() < 2 || found->size() > 3) {
        throw Failure(messages::kBadPoint, text);
    }
    return {(*found)[0], (*found)[1], found->size() == 3 ? (*found)[2] : 0.0};
}

} // namespace pipenet
