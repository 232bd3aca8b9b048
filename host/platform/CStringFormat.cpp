#include "platform/CString.h"
#include "platform/Encoding.h"
#include "platform/PlatformException.h"

#include <array>
#include <clocale>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <cwchar>
#include <locale.h>
#include <string>

namespace {

/// While it lives, numbers of this thread are written as ISO C's own locale writes them.
class PlainNumbers {
public:
    PlainNumbers() : before_(uselocale(plain())) {}
    ~PlainNumbers() { uselocale(before_); }
    PlainNumbers(const PlainNumbers&) = delete;
    PlainNumbers& operator=(const PlainNumbers&) = delete;

private:
    static locale_t plain() {
        static const locale_t locale = newlocale(LC_ALL_MASK, "C", static_cast<locale_t>(nullptr));
        return locale;
    }

    locale_t before_;
};

// The analyzer does not follow an argument list that is handed on by reference.
// NOLINTBEGIN(clang-analyzer-valist.Uninitialized)

/// Arguments of one formatting, read one after the other.
using Arguments = va_list;

enum class Size { none, charSize, shortSize, longSize, longLong, longDouble };

/// The size whose integers are as wide as those of a type that has a letter of its own.
template<class Integer>
constexpr Size sizeLike = sizeof(Integer) == sizeof(long)        ? Size::longSize
                          : sizeof(Integer) == sizeof(long long) ? Size::longLong
                                                                 : Size::none;

/// One conversion of a format, from its percent sign on.
struct Conversion {
    std::string flags;
    int width = 0;
    bool hasPrecision = false;
    int precision = 0;
    Size size = Size::none;
    wchar_t kind = L'\0';

    bool leftAligned() const { return flags.find('-') != std::string::npos; }
};

constexpr int greatestWidth = 1'000'000;

int readCount(const wchar_t*& format, Arguments& arguments) {
    if (*format == L'*') {
        ++format;
        return va_arg(arguments, int);
    }
    int count = 0;
    for (; *format >= L'0' && *format <= L'9'; ++format) {
        count = count < greatestWidth ? count * 10 + (*format - L'0') : greatestWidth;
    }
    return count;
}

Size readSize(const wchar_t*& format) {
    struct Spelling {
        const wchar_t* text;
        Size size;
    };
    // A longer spelling stands before the one that it begins with.
    static constexpr std::array<Spelling, 11> spellings = {{{L"I64", Size::longLong},
                                                            {L"I32", Size::none},
                                                            {L"hh", Size::charSize},
                                                            {L"h", Size::shortSize},
                                                            {L"ll", Size::longLong},
                                                            {L"l", Size::longSize},
                                                            {L"w", Size::longSize},
                                                            {L"j", sizeLike<std::intmax_t>},
                                                            {L"z", sizeLike<std::size_t>},
                                                            {L"t", sizeLike<std::ptrdiff_t>},
                                                            {L"L", Size::longDouble}}};
    for (const Spelling& spelling : spellings) {
        const std::size_t length = std::wcslen(spelling.text);
        if (std::wcsncmp(format, spelling.text, length) == 0) {
            format += length;
            return spelling.size;
        }
    }
    return Size::none;
}

Conversion readConversion(const wchar_t*& format, Arguments& arguments) {
    Conversion conversion;
    for (; *format != L'\0' && std::wcschr(L"-+ #0", *format) != nullptr; ++format) {
        conversion.flags.push_back(static_cast<char>(*format));
    }
    conversion.width = readCount(format, arguments);
    if (conversion.width < 0) {
        conversion.flags.push_back('-');
        conversion.width = conversion.width < -greatestWidth ? greatestWidth : -conversion.width;
    }
    if (*format == L'.') {
        ++format;
        conversion.precision = readCount(format, arguments);
        conversion.hasPrecision = conversion.precision >= 0;
    }
    conversion.size = readSize(format);
    conversion.kind = *format;
    if (*format != L'\0') {
        ++format;
    }
    return conversion;
}

std::string numberFormat(const Conversion& conversion, const char* size) {
    std::string format = "%";
    format += conversion.flags;
    if (conversion.width > 0) {
        format += std::to_string(conversion.width);
    }
    if (conversion.hasPrecision) {
        format += "." + std::to_string(conversion.precision);
    }
    format += size;
    format.push_back(static_cast<char>(conversion.kind));
    return format;
}

template<class Number>
void appendNumber(std::wstring& out, const std::string& format, Number number) {
    const PlainNumbers plain;
    const int length = std::snprintf(nullptr, 0, format.c_str(), number);
    if (length < 0) {
        AfxThrowInvalidArgException();
    }
    std::string text(static_cast<std::size_t>(length) + 1, '\0');
    std::snprintf(text.data(), text.size(), format.c_str(), number);
    text.pop_back();
    out.append(text.begin(), text.end());
}

void appendPadded(std::wstring& out, const Conversion& conversion, std::wstring_view text) {
    const auto width = static_cast<std::size_t>(conversion.width);
    const std::size_t blanks = width > text.size() ? width - text.size() : 0;
    if (!conversion.leftAligned()) {
        out.append(blanks, L' ');
    }
    out += text;
    if (conversion.leftAligned()) {
        out.append(blanks, L' ');
    }
}

/// Writes an integer; the three types are those of an argument without size, of a long and of a
/// long long one.
template<class Plain, class Long, class LongLong>
void appendInteger(std::wstring& out, const Conversion& conversion, Arguments& arguments) {
    switch (conversion.size) {
    case Size::longSize:
        appendNumber(out, numberFormat(conversion, "l"), va_arg(arguments, Long));
        break;
    case Size::longLong:
        appendNumber(out, numberFormat(conversion, "ll"), va_arg(arguments, LongLong));
        break;
    case Size::charSize:
        appendNumber(out, numberFormat(conversion, "hh"), va_arg(arguments, Plain));
        break;
    case Size::shortSize:
        appendNumber(out, numberFormat(conversion, "h"), va_arg(arguments, Plain));
        break;
    default:
        appendNumber(out, numberFormat(conversion, ""), va_arg(arguments, Plain));
        break;
    }
}

void appendReal(std::wstring& out, const Conversion& conversion, Arguments& arguments) {
    if (conversion.size == Size::longDouble) {
        appendNumber(out, numberFormat(conversion, "L"), va_arg(arguments, long double));
    } else {
        appendNumber(out, numberFormat(conversion, ""), va_arg(arguments, double));
    }
}

/// Whether a text or character argument is narrow: a capital kind or the size "h".
bool isNarrow(const Conversion& conversion) {
    return conversion.size == Size::shortSize ||
           (conversion.size != Size::longSize &&
            (conversion.kind == L'S' || conversion.kind == L'C'));
}

void appendCharacter(std::wstring& out, const Conversion& conversion, Arguments& arguments) {
    const int value = va_arg(arguments, int);
    if (isNarrow(conversion)) {
        const char narrow = static_cast<char>(value);
        appendPadded(out, conversion, host_text::fromUtf8({&narrow, 1}));
    } else {
        const auto wide = static_cast<wchar_t>(value);
        appendPadded(out, conversion, {&wide, 1});
    }
}

void appendText(std::wstring& out, const Conversion& conversion, Arguments& arguments) {
    const auto limit = static_cast<std::size_t>(conversion.precision);
    if (isNarrow(conversion)) {
        const char* text = va_arg(arguments, const char*);
        text = text == nullptr ? "(null)" : text;
        const std::size_t length =
            conversion.hasPrecision ? strnlen(text, limit) : std::strlen(text);
        appendPadded(out, conversion, host_text::fromUtf8({text, length}));
        return;
    }
    const wchar_t* text = va_arg(arguments, const wchar_t*);
    text = text == nullptr ? L"(null)" : text;
    const std::size_t length = conversion.hasPrecision ? wcsnlen(text, limit) : std::wcslen(text);
    appendPadded(out, conversion, {text, length});
}

/// Writes one conversion; false if its kind is unknown, nothing being written or read then.
bool appendConversion(std::wstring& out, const Conversion& conversion, Arguments& arguments) {
    switch (conversion.kind) {
    case L'd':
    case L'i':
        appendInteger<int, long, long long>(out, conversion, arguments);
        return true;
    case L'u':
    case L'o':
    case L'x':
    case L'X':
        appendInteger<unsigned, unsigned long, unsigned long long>(out, conversion, arguments);
        return true;
    case L'e':
    case L'E':
    case L'f':
    case L'F':
    case L'g':
    case L'G':
    case L'a':
    case L'A':
        appendReal(out, conversion, arguments);
        return true;
    case L'c':
    case L'C':
        appendCharacter(out, conversion, arguments);
        return true;
    case L's':
    case L'S':
        appendText(out, conversion, arguments);
        return true;
    case L'p':
        appendNumber(out, numberFormat(conversion, ""), va_arg(arguments, void*));
        return true;
    case L'%':
        out.push_back(L'%');
        return true;
    default:
        return false;
    }
}

std::wstring formatted(const wchar_t* format, Arguments& arguments) {
    std::wstring out;
    while (*format != L'\0') {
        if (*format != L'%') {
            out.push_back(*format++);
            continue;
        }
        const wchar_t* rest = format + 1;
        if (!appendConversion(out, readConversion(rest, arguments), arguments)) {
            out.append(format, rest);
        }
        format = rest;
    }
    return out;
}

// NOLINTEND(clang-analyzer-valist.Uninitialized)

} // namespace

void CString::FormatV(const wchar_t* format, va_list arguments) {
    if (format == nullptr) {
        AfxThrowInvalidArgException();
    }
    Arguments copy;
    va_copy(copy, arguments);
    std::wstring text;
    try {
        text = formatted(format, copy);
    } catch (...) {
        va_end(copy);
        throw;
    }
    va_end(copy);
    assign(text);
}

void CString::Format(const wchar_t* format, ...) {
    va_list arguments;
    va_start(arguments, format);
    FormatV(format, arguments);
    va_end(arguments);
}

void CString::AppendFormatV(const wchar_t* format, va_list arguments) {
    CString addition;
    addition.FormatV(format, arguments);
    *this += addition;
}

void CString::AppendFormat(const wchar_t* format, ...) {
    va_list arguments;
    va_start(arguments, format);
    AppendFormatV(format, arguments);
    va_end(arguments);
}
