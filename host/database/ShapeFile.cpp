#include "database/ShapeFile.h"

#include "database/LinetypeFile.h"
#include "platform/WideCharacters.h"

#include <cstddef>
#include <string>

namespace host_db {
namespace {

/// Fonts that are compiled alike, the big and the Unicode ones, tell another kind.
constexpr std::string_view kKind = " shapes V1.";
constexpr char kHeadEnd = '\x1A';
constexpr std::size_t kNumberSize = 2;

/// The number at `place`, which must lie in the bytes.
std::uint16_t numberAt(std::string_view bytes, std::size_t place) {
    const auto low = static_cast<unsigned char>(bytes[place]);
    const auto high = static_cast<unsigned char>(bytes[place + 1]);
    return static_cast<std::uint16_t>(low + high * 256U);
}

/// What stands behind the head; nothing for a file of another kind.
std::string_view bodyOf(std::string_view file) {
    const std::size_t end = file.find(kHeadEnd);
    const bool isShapeFile =
        end != std::string_view::npos && file.substr(0, end).find(kKind) != std::string_view::npos;
    return isShapeFile ? file.substr(end + 1) : std::string_view();
}

/// The name at the head of a definition; a definition without the zero byte has none.
std::wstring nameOf(std::string_view definition) {
    const std::size_t end = definition.find('\0');
    return end == std::string_view::npos ? std::wstring()
                                         : decodeLinetypeFile(definition.substr(0, end));
}

} // namespace

std::optional<std::uint16_t> findShape(std::string_view file, std::wstring_view name) {
    constexpr std::size_t kCountPlace = 2 * kNumberSize;
    constexpr std::size_t kIndexPlace = 3 * kNumberSize;
    constexpr std::size_t kEntrySize = 2 * kNumberSize;
    const std::string_view body = bodyOf(file);
    if (name.empty() || body.size() < kIndexPlace) {
        return std::nullopt;
    }
    const std::size_t count = numberAt(body, kCountPlace);
    std::size_t begin = kIndexPlace + count * kEntrySize;
    const std::wstring wanted(name);
    for (std::size_t i = 0; i < count && begin < body.size(); ++i) {
        const std::size_t entry = kIndexPlace + i * kEntrySize;
        const std::uint16_t number = numberAt(body, entry);
        const std::size_t length = numberAt(body, entry + kNumberSize);
        const std::wstring found = nameOf(body.substr(begin, length));
        // Number 0 tells of the file as a whole and draws nothing.
        if (number != 0 && host_text::compareNoCase(found.c_str(), wanted.c_str()) == 0) {
            return number;
        }
        begin += length;
    }
    return std::nullopt;
}

} // namespace host_db
