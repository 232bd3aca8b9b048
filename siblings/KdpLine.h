#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace siblings {

/// What one line of a settings file is.
enum class KdpLineKind { blank, comment, entry, malformed };

/// One line of a settings file, without its line end, UTF-8.
struct KdpLine {
    KdpLineKind kind = KdpLineKind::blank;
    std::string key;   ///< of an entry: the key path, never empty
    std::string value; ///< of an entry: the value as read, quotes and escapes resolved
};

/// Reads one line. Blanks are the space and the tab. In an entry the first `=` with a blank before
/// it and a blank or the line's end behind it splits; blanks around key and value are dropped. A
/// value whose first character is `"` and whose next unescaped `"` is its last character is quoted:
/// its blanks stay, and `\n`, `\t`, `\"`, `\\` are read as line feed, tab, quote and backslash; any
/// other escape stays as it is. A value that merely begins with a quote stands as it is.
KdpLine parseKdpLine(std::string_view text);

/// The line that `parseKdpLine` reads as this key and value, quoted only where it must be; nothing
/// when no line does, as for a key with a line break. `present` is the line as it stands so far:
/// its text up to the value is kept. Empty for a new line.
std::optional<std::string> formatKdpLine(std::string_view present, std::string_view key,
                                         std::string_view value);

} // namespace siblings
