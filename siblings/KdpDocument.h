#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace siblings {

/// The lines of one settings file in memory, UTF-8, with everything that writing it back needs.
class KdpDocument {
public:
    /// Reads a whole file's bytes. Gives nothing when they are not UTF-8 or a line is neither
    /// blank, comment nor entry. Cost: one pass.
    static std::optional<KdpDocument> parse(std::string_view bytes);

    /// The value of the first line with this key; null when there is none. The pointer holds until
    /// the next `set`. Cost: one hash look-up.
    const std::string* find(const std::string& key) const;

    /// Sets the value of the first line with this key, or adds a line at the end. Gives true when a
    /// line was added.
    bool set(const std::string& key, const std::string& value);

    /// The keys without a backslash in file order, those that stand twice twice.
    std::vector<std::string> topLevelKeys() const;

    /// The file's bytes; nothing when an entry that was set cannot be written as a line that reads
    /// back the same.
    std::optional<std::string> bytes() const;

private:
    struct Line {
        std::string text; ///< as it stands in the file, without its end
        std::string end;  ///< "\n", "\r\n", "\r" (file cut within its last line end) or empty
        std::string key;  ///< empty unless the line is an entry
        std::string value;
        bool changed = false; ///< the text is out of date: key and value count
    };

    bool addLine(std::string_view text, std::string_view end);
    void addEntry(const std::string& key, const std::string& value);

    bool hasByteOrderMark_ = false;
    std::vector<Line> lines_;
    std::unordered_map<std::string, std::size_t> firstLineOf_;
};

} // namespace siblings
