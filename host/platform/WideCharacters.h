#pragma once

namespace host_text {

/// Whether a character is white space: the ASCII blanks and Unicode's own (the wide blank
/// U+3000 included). Never depends on the process locale.
bool isSpace(wchar_t character);

/// The character's simple upper or lower case; itself where it has none. Never depends on the
/// process locale.
wchar_t upperCase(wchar_t character);
wchar_t lowerCase(wchar_t character);

/// Below, equal to or above 0 as `a` stands before, with or after `b` when case is left out of
/// account. Texts end at their null character; neither may be a null pointer.
int compareNoCase(const wchar_t* a, const wchar_t* b);

} // namespace host_text
