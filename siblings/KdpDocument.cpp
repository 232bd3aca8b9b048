#include "KdpDocument.h"

#include "KdpLine.h"
#include "platform/Encoding.h"

#include <utility>

namespace siblings {

namespace {

constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

bool isUtf8(std::string_view bytes) {
    return host_text::toUtf8(host_text::fromUtf8(bytes)) == bytes;
}

bool startsWithMark(std::string_view bytes) {
    return bytes.substr(0, byteOrderMark.size()) == byteOrderMark;
}

/// Splits the first line off `rest`: its text, and its end in `end`.
std::string_view takeLine(std::string_view& rest, std::string_view& end) {
    const std::size_t feed = rest.find('\n');
    const std::size_t stop = feed == std::string_view::npos ? rest.size() : feed;
    const bool carriage = stop > 0 && rest[stop - 1] == '\r';
    const std::size_t textEnd = carriage ? stop - 1 : stop;
    const std::size_t next = feed == std::string_view::npos ? stop : stop + 1;
    const std::string_view text = rest.substr(0, textEnd);
    end = rest.substr(textEnd, next - textEnd);
    rest.remove_prefix(next);
    return text;
}

} // namespace

std::optional<KdpDocument> KdpDocument::parse(std::string_view bytes) {
    if (!isUtf8(bytes)) {
        return std::nullopt;
    }
    KdpDocument document;
    document.hasByteOrderMark_ = startsWithMark(bytes);
    if (document.hasByteOrderMark_) {
        bytes.remove_prefix(byteOrderMark.size());
    }
    while (!bytes.empty()) {
        std::string_view end;
        const std::string_view text = takeLine(bytes, end);
        if (!document.addLine(text, end)) {
            return std::nullopt;
        }
    }
    return document;
}

bool KdpDocument::addLine(std::string_view text, std::string_view end) {
    KdpLine read = parseKdpLine(text);
    if (read.kind == KdpLineKind::malformed) {
        return false;
    }
    if (read.kind == KdpLineKind::entry) {
        firstLineOf_.emplace(read.key, lines_.size());
    }
    lines_.push_back(
        {std::string(text), std::string(end), std::move(read.key), std::move(read.value), false});
    return true;
}

const std::string* KdpDocument::find(const std::string& key) const {
    const auto at = firstLineOf_.find(key);
    return at == firstLineOf_.end() ? nullptr : &lines_[at->second].value;
}

bool KdpDocument::set(const std::string& key, const std::string& value) {
    const auto at = firstLineOf_.find(key);
    if (at == firstLineOf_.end()) {
        addEntry(key, value);
        return true;
    }
    Line& line = lines_[at->second];
    if (line.value != value) {
        line.value = value;
        line.changed = true;
    }
    return false;
}

void KdpDocument::addEntry(const std::string& key, const std::string& value) {
    const bool carriage = !lines_.empty() && lines_.front().end == "\r\n";
    const std::string end = carriage ? "\r\n" : "\n";
    if (!lines_.empty() && lines_.back().end != "\n" && lines_.back().end != "\r\n") {
        lines_.back().end = end;
    }
    firstLineOf_.emplace(key, lines_.size());
    lines_.push_back({{}, end, key, value, true});
}

std::vector<std::string> KdpDocument::topLevelKeys() const {
    std::vector<std::string> keys;
    for (const Line& line : lines_) {
        if (!line.key.empty() && line.key.find('\\') == std::string::npos) {
            keys.push_back(line.key);
        }
    }
    return keys;
}

std::optional<std::string> KdpDocument::bytes() const {
    std::string out(hasByteOrderMark_ ? byteOrderMark : std::string_view());
    for (const Line& line : lines_) {
        if (!line.changed) {
            out += line.text;
        } else if (const auto text = formatKdpLine(line.text, line.key, line.value)) {
            out += *text;
        } else {
            return std::nullopt;
        }
        out += line.end;
    }
    // Text of the first line that looks like a mark would be taken for one by the next reader.
    return !hasByteOrderMark_ && startsWithMark(out) ? std::nullopt : std::optional(out);
}

} // namespace siblings
