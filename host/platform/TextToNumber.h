#pragma once

/// Reads the integer prefix of a text: white space, one sign, decimal digits. Text without such
/// a prefix (and a null pointer) gives 0. Saturates at INT_MIN and INT_MAX. Independent of the
/// locale.
int _wtoi(const wchar_t* text);

namespace platform_crt {

/// Reads the decimal prefix of a text: white space, one sign, digits with at most one point, an
/// exponent if at least one digit follows it ("12.5m" is 12.5, "1e" is 1). `inf`, `nan` and
/// hexadecimal count as text without a numeric prefix, so "0x1A" is 0.
///
/// `end`, if not null, receives the first character not read: `text` itself when nothing was.
/// Overflow gives HUGE_VAL with the number's sign, underflow the nearest number or a signed
/// zero. The result is correctly rounded and independent of the locale. Cost: linear.
double wcstod(const wchar_t* text, wchar_t** end);

} // namespace platform_crt
