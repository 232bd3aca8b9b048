#include "database/LinetypeFile.h"

#include "dxf/CodePage.h"
#include "platform/Encoding.h"
#include "platform/TextToNumber.h"
#include "platform/WideCharacters.h"

#include <cmath>
#include <numbers>
#include <optional>

namespace host_db {
namespace {

constexpr std::wstring_view kByteOrderMark = L"\xFEFF";
/// Older editors end a file with 0x1A; in files that were put together it stands in the middle.
constexpr std::wstring_view kLineEnds = L"\n\x1A";
constexpr std::size_t kLeastDashes = 2;
constexpr std::size_t kMostDashes = 12;

std::wstring_view trimmed(std::wstring_view text) {
    while (!text.empty() && host_text::isSpace(text.front())) {
        text.remove_prefix(1);
    }
    while (!text.empty() && host_text::isSpace(text.back())) {
        text.remove_suffix(1);
    }
    return text;
}

bool sameName(std::wstring_view a, std::wstring_view b) {
    return host_text::compareNoCase(std::wstring(a).c_str(), std::wstring(b).c_str()) == 0;
}

/// Takes the next line that is neither blank nor a comment; false at the end.
bool takeLine(std::wstring_view& rest, std::wstring_view& line) {
    while (!rest.empty()) {
        const std::size_t end = rest.find_first_of(kLineEnds);
        line = trimmed(rest.substr(0, end));
        rest.remove_prefix(end == std::wstring_view::npos ? rest.size() : end + 1);
        if (!line.empty() && line.front() != L';') {
            return true;
        }
    }
    return false;
}

/// The whole text is one number, blanks around it aside.
std::optional<double> numberOf(std::wstring_view text) {
    const std::wstring number(trimmed(text));
    wchar_t* end = nullptr;
    const double value = platform_crt::wcstod(number.c_str(), &end);
    const bool isNumber = !number.empty() && end == number.c_str() + number.size();
    return isNumber && std::isfinite(value) ? std::optional(value) : std::nullopt;
}

/// An angle in radians.
std::optional<double> angleOf(std::wstring_view text) {
    double unit = std::numbers::pi / 180.0;
    text = trimmed(text);
    const wchar_t last = text.empty() ? L'\0' : host_text::lowerCase(text.back());
    if (last == L'r' || last == L'g' || last == L'd') {
        text.remove_suffix(1);
        unit = last == L'r' ? 1.0 : unit;
        unit = last == L'g' ? std::numbers::pi / 200.0 : unit;
    }
    const std::optional<double> number = numberOf(text);
    return number ? std::optional(*number * unit) : std::nullopt;
}

/// Cuts at the commas that stand outside of brackets and double quotes.
std::vector<std::wstring_view> partsOf(std::wstring_view text) {
    std::vector<std::wstring_view> parts;
    bool quoted = false;
    int depth = 0;
    std::size_t begin = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        quoted = quoted != (text[i] == L'"');
        if (!quoted && (text[i] == L'[' || text[i] == L']')) {
            depth += text[i] == L'[' ? 1 : -1;
        } else if (!quoted && depth == 0 && text[i] == L',') {
            parts.push_back(trimmed(text.substr(begin, i - begin)));
            begin = i + 1;
        }
    }
    parts.push_back(trimmed(text.substr(begin)));
    return parts;
}

/// Reads one `LETTER=value` of the settings of a text or shape.
bool readSetting(std::wstring_view setting, LinetypeDefinition::Dash& dash) {
    if (setting.size() < 2 || setting[1] != L'=') {
        return false;
    }
    const wchar_t letter = host_text::upperCase(setting[0]);
    const std::wstring_view value = setting.substr(2);
    const bool isAngle = letter == L'R' || letter == L'A' || letter == L'U';
    const std::optional<double> number = isAngle ? angleOf(value) : numberOf(value);
    if (!number) {
        return false;
    }
    if (isAngle) {
        dash.rotation = *number;
        dash.isAbsolute = letter == L'A';
        dash.isUpright = letter == L'U';
        return true;
    }
    double* const target = letter == L'S'   ? &dash.scale
                           : letter == L'X' ? &dash.x
                           : letter == L'Y' ? &dash.y
                                            : nullptr;
    if (target != nullptr) {
        *target = *number;
    }
    return target != nullptr;
}

/// Reads a text in double quotes, or without them the name of a shape.
bool readMarkName(std::wstring_view name, LinetypeDefinition::Dash& dash) {
    const bool isQuoted = name.size() >= 2 && name.front() == L'"' && name.back() == L'"';
    if (!isQuoted && (name.empty() || name.find(L'"') != std::wstring_view::npos)) {
        return false;
    }
    dash.mark = isQuoted ? LinetypeDefinition::Mark::Text : LinetypeDefinition::Mark::Shape;
    dash.text = isQuoted ? name.substr(1, name.size() - 2) : name;
    return true;
}

/// Reads what stands between the brackets behind a dash.
bool readMark(std::wstring_view inside, LinetypeDefinition::Dash& dash) {
    const std::vector<std::wstring_view> parts = partsOf(inside);
    if (parts.size() < 2 || parts[1].empty() || !readMarkName(parts.front(), dash)) {
        return false;
    }
    dash.style = parts[1];
    for (std::size_t i = 2; i < parts.size(); ++i) {
        if (!readSetting(parts[i], dash)) {
            return false;
        }
    }
    return true;
}

/// Reads one dash, or the text or shape behind the last one.
bool readPart(std::wstring_view part, std::vector<LinetypeDefinition::Dash>& dashes) {
    if (!part.empty() && part.front() == L'[') {
        const bool fits = part.back() == L']' && !dashes.empty() &&
                          dashes.back().mark == LinetypeDefinition::Mark::None;
        return fits && readMark(part.substr(1, part.size() - 2), dashes.back());
    }
    const std::optional<double> length = numberOf(part);
    if (length) {
        dashes.emplace_back().length = *length;
    }
    return length.has_value();
}

bool readDashes(std::wstring_view text, std::vector<LinetypeDefinition::Dash>& dashes) {
    const std::vector<std::wstring_view> parts = partsOf(text);
    if (parts.front() != L"A" && parts.front() != L"a") {
        return false;
    }
    for (std::size_t i = 1; i < parts.size(); ++i) {
        if (!readPart(parts[i], dashes)) {
            return false;
        }
    }
    return dashes.size() >= kLeastDashes && dashes.size() <= kMostDashes &&
           dashes.front().length >= 0.0;
}

/// A line of a pattern without the comment behind it.
std::wstring_view withoutComment(std::wstring_view line) {
    bool quoted = false;
    for (std::size_t i = 0; i < line.size(); ++i) {
        quoted = quoted != (line[i] == L'"');
        if (!quoted && line[i] == L';') {
            return trimmed(line.substr(0, i));
        }
    }
    return line;
}

/// The pattern below the name as one line. It goes on where a line ends with a comma or the next
/// one begins with one; the comma then stands once. Stray lines behind it are none of its own.
std::wstring takePattern(std::wstring_view rest) {
    std::wstring pattern;
    std::wstring_view line;
    while (takeLine(rest, line) && line.front() != L'*') {
        line = withoutComment(line);
        const bool goesOn = pattern.empty() || pattern.back() == L',';
        const bool beginsWithComma = !line.empty() && line.front() == L',';
        if (!goesOn && !beginsWithComma) {
            break;
        }
        pattern += line.substr(goesOn && beginsWithComma ? 1 : 0);
    }
    if (!pattern.empty() && pattern.back() == L',') {
        pattern.pop_back();
    }
    return pattern;
}

} // namespace

std::wstring decodeLinetypeFile(std::string_view bytes) {
    std::wstring text = host_text::fromUtf8(bytes);
    const bool isUtf8 = bytes.find("\xEF\xBF\xBD") != std::string_view::npos ||
                        text.find(L'\xFFFD') == std::wstring::npos;
    if (!isUtf8) {
        text.clear();
        host_dxf::CodePage("CP936").decode(bytes, text);
    }
    if (text.starts_with(kByteOrderMark)) {
        text.erase(0, kByteOrderMark.size());
    }
    return text;
}

Acad::ErrorStatus findLinetype(std::wstring_view file, std::wstring_view name,
                               LinetypeDefinition& definition) {
    std::wstring_view line;
    while (takeLine(file, line)) {
        if (line.front() != L'*') {
            continue;
        }
        const std::size_t comma = line.find(L',');
        const std::wstring_view found = trimmed(line.substr(1, comma - 1));
        if (!sameName(found, name)) {
            continue;
        }
        LinetypeDefinition read;
        read.name = found;
        read.description =
            comma == std::wstring_view::npos ? L"" : std::wstring(trimmed(line.substr(comma + 1)));
        if (!readDashes(takePattern(file), read.dashes)) {
            return Acad::eInvalidInput;
        }
        definition = std::move(read);
        return Acad::eOk;
    }
    return Acad::eKeyNotFound;
}

} // namespace host_db
