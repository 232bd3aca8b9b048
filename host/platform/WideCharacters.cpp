#include "platform/WideCharacters.h"

#include <clocale>
#include <cwctype>
#include <locale.h>

namespace host_text {
namespace {

/// Character classes of Unicode, whatever locale the process runs under.
locale_t unicodeLocale() {
    static const locale_t locale = [] {
        const locale_t unicode =
            newlocale(LC_CTYPE_MASK, "C.UTF-8", static_cast<locale_t>(nullptr));
        return unicode != nullptr ? unicode
                                  : newlocale(LC_CTYPE_MASK, "C", static_cast<locale_t>(nullptr));
    }();
    return locale;
}

bool isAscii(wchar_t character) {
    return character >= 0 && character < 0x80;
}

} // namespace

bool isSpace(wchar_t character) {
    switch (character) {
    case L' ':
    case 0x0085:
    case 0x00A0:
    case 0x1680:
    case 0x2028:
    case 0x2029:
    case 0x202F:
    case 0x205F:
    case 0x3000:
        return true;
    default:
        return (character >= 0x0009 && character <= 0x000D) ||
               (character >= 0x2000 && character <= 0x200A);
    }
}

wchar_t upperCase(wchar_t character) {
    if (isAscii(character)) {
        const bool lower = character >= L'a' && character <= L'z';
        return lower ? static_cast<wchar_t>(character - L'a' + L'A') : character;
    }
    return static_cast<wchar_t>(towupper_l(static_cast<wint_t>(character), unicodeLocale()));
}

wchar_t lowerCase(wchar_t character) {
    if (isAscii(character)) {
        const bool upper = character >= L'A' && character <= L'Z';
        return upper ? static_cast<wchar_t>(character - L'A' + L'a') : character;
    }
    return static_cast<wchar_t>(towlower_l(static_cast<wint_t>(character), unicodeLocale()));
}

int compareNoCase(const wchar_t* a, const wchar_t* b) {
    for (;; ++a, ++b) {
        const wchar_t left = lowerCase(*a);
        const wchar_t right = lowerCase(*b);
        if (left != right) {
            return left < right ? -1 : 1;
        }
        if (left == L'\0') {
            return 0;
        }
    }
}

} // namespace host_text
