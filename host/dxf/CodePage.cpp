#include "dxf/CodePage.h"

#include <cctype>
#include <cstddef>
#include <cstdlib>
#include <iconv.h>

namespace host_dxf {

namespace {

constexpr char16_t noCharacter = 0;
constexpr wchar_t replacement = L'\xFFFD';
constexpr unsigned firstUpper = 0x80;

/// The system's converter from one code page to UTF-16, closed at the end of its scope.
class Converter {
public:
    explicit Converter(const std::string& from) : handle_(::iconv_open("UTF-16LE", from.c_str())) {}
    ~Converter() {
        if (isOpen()) {
            ::iconv_close(handle_);
        }
    }
    Converter(const Converter&) = delete;
    Converter& operator=(const Converter&) = delete;

    // The system marks a failed opening with an all-ones handle.
    bool isOpen() const { return reinterpret_cast<std::intptr_t>(handle_) != -1; }
    iconv_t handle() const { return handle_; }

private:
    iconv_t handle_;
};

/// The one UTF-16 unit that all of `bytes` stands for, or noCharacter.
char16_t convertOne(iconv_t converter, char* bytes, std::size_t count) {
    unsigned char unit[8] = {};
    char* out = reinterpret_cast<char*>(unit);
    std::size_t room = sizeof unit;
    ::iconv(converter, nullptr, nullptr, nullptr, nullptr);
    const std::size_t failed = ::iconv(converter, &bytes, &count, &out, &room);
    if (failed == static_cast<std::size_t>(-1) || count != 0) {
        return noCharacter;
    }
    // Pages with combining marks hold a base letter back until they are told to finish.
    ::iconv(converter, nullptr, nullptr, &out, &room);
    return room == sizeof unit - 2 ? static_cast<char16_t>(unit[0] | unit[1] << 8) : noCharacter;
}

std::string upperCase(std::string_view text) {
    std::string upper;
    for (const char letter : text) {
        upper += static_cast<char>(std::toupper(static_cast<unsigned char>(letter)));
    }
    return upper;
}

struct NamedPage {
    std::string_view name;
    std::string_view converterName;
};

constexpr NamedPage namedPages[] = {
    {"GB2312", "CP936"},         {"BIG5", "CP950"},         {"KSC5601", "CP949"},
    {"JOHAB", "CP1361"},         {"DOS1361", "CP1361"},     {"MAC-ROMAN", "MACINTOSH"},
    {"ANSI_65001", "UTF-8"},     {"UTF-8", "UTF-8"},        {"UTF8", "UTF-8"},
    {"ANSI_874", "WINDOWS-874"}, {"DOS874", "WINDOWS-874"}, {"ASCII", "CP1252"},
};

/// The number behind "ANSI_" or "DOS" in an upper-case name, 0 without one.
int pageNumber(std::string_view name) {
    const std::size_t digits = name.find_first_of("0123456789");
    const bool numbered = name.starts_with("ANSI") || name.starts_with("DOS");
    if (!numbered || digits == std::string_view::npos || name.size() - digits > 4) {
        return 0;
    }
    return std::atoi(std::string(name.substr(digits)).c_str());
}

} // namespace

CodePage::CodePage(const std::string& converterName) {
    for (unsigned byte = 0; byte < firstUpper; ++byte) {
        single_[byte] = static_cast<char16_t>(byte);
    }
    const Converter converter(converterName);
    if (!converter.isOpen()) {
        return;
    }
    for (unsigned byte = firstUpper; byte < single_.size(); ++byte) {
        char one = static_cast<char>(byte);
        single_[byte] = convertOne(converter.handle(), &one, 1);
        known_ = known_ || single_[byte] != noCharacter;
    }
    for (unsigned lead = firstUpper; lead < single_.size(); ++lead) {
        if (single_[lead] == noCharacter) {
            addPairs(converter.handle(), lead);
        }
    }
    if (converterName == "CP936" && single_[0x80] == noCharacter) {
        single_[0x80] = u'\x20AC'; // the euro sign, which the system's table leaves out
    }
}

void CodePage::addPairs(void* converter, unsigned lead) {
    for (unsigned trail = 0x30; trail < 0xFF; ++trail) {
        char pair[2] = {static_cast<char>(lead), static_cast<char>(trail)};
        const char16_t character = convertOne(static_cast<iconv_t>(converter), pair, 2);
        if (character == noCharacter) {
            continue;
        }
        pairs_.resize(std::size_t{256} * 256, noCharacter);
        pairs_[lead * 256 + trail] = character;
        known_ = true;
    }
}

void CodePage::decode(std::string_view bytes, std::wstring& text) const {
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        const auto byte = static_cast<unsigned char>(bytes[i]);
        if (single_[byte] != noCharacter) {
            text += static_cast<wchar_t>(single_[byte]);
            continue;
        }
        char16_t pair = noCharacter;
        if (!pairs_.empty() && i + 1 < bytes.size()) {
            pair = pairs_[byte * 256U + static_cast<unsigned char>(bytes[i + 1])];
        }
        text += pair == noCharacter ? replacement : static_cast<wchar_t>(pair);
        i += pair == noCharacter ? 0 : 1;
    }
}

std::vector<CodePage::Character> CodePage::characters() const {
    std::vector<Character> all;
    for (std::size_t code = firstUpper; code < single_.size(); ++code) {
        if (single_[code] != noCharacter) {
            all.push_back({single_[code], static_cast<std::uint16_t>(code)});
        }
    }
    for (std::size_t code = 0; code < pairs_.size(); ++code) {
        if (pairs_[code] != noCharacter) {
            all.push_back({pairs_[code], static_cast<std::uint16_t>(code)});
        }
    }
    return all;
}

std::string converterNameFor(std::string_view dwgCodePage) {
    const std::string name = upperCase(dwgCodePage);
    for (const NamedPage& page : namedPages) {
        if (name == page.name) {
            return std::string(page.converterName);
        }
    }
    if (name.starts_with("ISO8859-")) {
        return "ISO-" + name.substr(3);
    }
    const int number = pageNumber(name);
    const std::string converterName = "CP" + std::to_string(number);
    return number != 0 && Converter(converterName).isOpen() ? converterName : "CP1252";
}

} // namespace host_dxf
