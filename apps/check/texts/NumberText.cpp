#include "texts/NumberText.h"

#include "records/XdataKeys.h"

#include <cwctype>

namespace pipenet {

namespace {

bool isBlank(const wchar_t* text) {
    while (*text != L'\0' && std::iswspace(static_cast<std::wint_t>(*text)) != 0) {
        ++text;
    }
    return *text == L'\0';
}

} // namespace

NumberReading readNumber(const CString& text, NumberKind kind) {
    const wchar_t* begin = text;
    wchar_t* end = nullptr;
    platform_crt::wcstod(begin, &end);
    NumberReading reading;
    reading.isNumber = end != begin;
    reading.value = kind == NumberKind::real ? NumberPrefix(text) : IntegerPrefix(text);
    // What stands behind the digits of an integer counts when it changes nothing: 300.0 is 300.
    reading.isWhole = reading.isNumber && isBlank(end) && reading.value == NumberPrefix(text);
    return reading;
}

} // namespace pipenet
