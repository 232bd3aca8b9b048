#include "KdpLine.h"

namespace siblings {

namespace {

constexpr std::string_view blanks = " \t";

bool isBlank(char c) {
    return c == ' ' || c == '\t';
}

std::string_view trimmed(std::string_view text) {
    const std::size_t first = text.find_first_not_of(blanks);
    if (first == std::string_view::npos) {
        return {};
    }
    return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

/// The place of the `=` that splits the line.
std::size_t splitPlace(std::string_view text) {
    std::size_t at = text.find('=');
    while (at != std::string_view::npos) {
        const bool before = at > 0 && isBlank(text[at - 1]);
        const bool behind = at + 1 == text.size() || isBlank(text[at + 1]);
        if (before && behind) {
            return at;
        }
        at = text.find('=', at + 1);
    }
    return at;
}

/// Appends what the escape `\` + `c` stands for.
void appendEscape(std::string& out, char c) {
    switch (c) {
    case 'n':
        out += '\n';
        break;
    case 't':
        out += '\t';
        break;
    case '"':
    case '\\':
        out += c;
        break;
    default:
        out += '\\';
        out += c;
    }
}

/// The content of a quoted value; nothing when `text` is not one.
std::optional<std::string> unquoted(std::string_view text) {
    if (text.size() < 2 || text.front() != '"') {
        return std::nullopt;
    }
    std::string out;
    for (std::size_t i = 1; i < text.size(); ++i) {
        if (text[i] == '"') {
            return i + 1 == text.size() ? std::optional(out) : std::nullopt;
        }
        if (text[i] == '\\' && i + 1 < text.size()) {
            appendEscape(out, text[++i]);
        } else {
            out += text[i];
        }
    }
    return std::nullopt;
}

bool needsQuotes(std::string_view value) {
    // A carriage return needs them because at the end of a line it would melt into the line end.
    return !value.empty() && (isBlank(value.front()) || isBlank(value.back()) ||
                              value.front() == '"' || value.find_first_of("\r\n") != value.npos);
}

std::string quoted(std::string_view value) {
    std::string out = "\"";
    for (const char c : value) {
        switch (c) {
        case '\n':
            out += "\\n";
            break;
        case '\t':
            out += "\\t";
            break;
        case '"':
        case '\\':
            out += '\\';
            out += c;
            break;
        default:
            out += c;
        }
    }
    return out + '"';
}

/// The line up to its value: key, `=` and the blanks behind it as they stand in `present`.
std::string headOf(std::string_view present, std::string_view key, bool valueFollows) {
    const std::size_t split = splitPlace(present);
    if (split == std::string_view::npos) {
        return std::string(key) + (valueFollows ? " = " : " =");
    }
    std::size_t end = split + 1;
    while (valueFollows && end < present.size() && isBlank(present[end])) {
        ++end;
    }
    std::string head(present.substr(0, end));
    if (valueFollows && head.back() == '=') {
        head += ' ';
    }
    return head;
}

} // namespace

KdpLine parseKdpLine(std::string_view text) {
    const std::string_view content = trimmed(text);
    if (content.empty()) {
        return {};
    }
    if (content.front() == '#' || content.front() == ';') {
        return {KdpLineKind::comment, {}, {}};
    }
    const std::size_t split = splitPlace(text);
    if (split == std::string_view::npos) {
        return {KdpLineKind::malformed, {}, {}};
    }
    const std::string_view key = trimmed(text.substr(0, split));
    if (key.empty()) {
        return {KdpLineKind::malformed, {}, {}};
    }
    const std::string_view value = trimmed(text.substr(split + 1));
    return {KdpLineKind::entry, std::string(key), unquoted(value).value_or(std::string(value))};
}

std::optional<std::string> formatKdpLine(std::string_view present, std::string_view key,
                                         std::string_view value) {
    std::string line = headOf(present, key, !value.empty());
    line += needsQuotes(value) ? quoted(value) : std::string(value);
    const KdpLine read = parseKdpLine(line);
    const bool same = read.kind == KdpLineKind::entry && read.key == key && read.value == value;
    if (!same || key.find_first_of("\r\n") != std::string_view::npos) {
        return std::nullopt;
    }
    return line;
}

} // namespace siblings
