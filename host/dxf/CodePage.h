#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace host_dxf {

/// One of the one- or two-byte code pages of older drawings, as a table. Its first half is ASCII in
/// every page: the format's own syntax relies on that. Immutable, so any thread may decode.
class CodePage {
public:
    /// The page that the system's converter knows as `converterName` ("CP936", "WINDOWS-874", ...).
    /// An unknown name gives a page whose upper half is empty. Costs one table of 128 KiB and some
    /// milliseconds for a two-byte page, a few hundred bytes for a one-byte one.
    explicit CodePage(const std::string& converterName);

    /// Appends the decoded text; a byte that starts no character of the page gives U+FFFD. Linear.
    void decode(std::string_view bytes, std::wstring& text) const;

    /// True when the page knows at least one character beyond ASCII.
    bool isKnown() const { return known_; }

    /// A character beyond ASCII and its code: one byte, or lead * 256 + trail.
    struct Character {
        char16_t unit = 0;
        std::uint16_t code = 0;
    };
    /// All characters beyond ASCII, those of one byte first, then by ascending code.
    std::vector<Character> characters() const;

private:
    void addPairs(void* converter, unsigned lead);

    std::array<char16_t, 256> single_{};
    std::vector<char16_t> pairs_; ///< by lead * 256 + trail; empty for a one-byte page
    bool known_ = false;
};

/// The converter's name for a value of $DWGCODEPAGE ("ANSI_936", "dos850", "gb2312", ...), without
/// regard to case; "UTF-8" for the Unicode ones; "CP1252" for an empty or unknown value.
std::string converterNameFor(std::string_view dwgCodePage);

} // namespace host_dxf
