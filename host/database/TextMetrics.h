#pragma once

#include "database/TextFonts.h"
#include "platform/CString.h"

namespace host_db {

/// The character takes a full em: ideographs, kana, hangul, full-width forms, wide symbols.
bool isWideCharacter(wchar_t character);

/// Advance of a character in ems of the built-in table: 1 for wide characters, 0 for combining
/// marks and controls, for ASCII a proportional one from 0.25 (i, l, points) to 0.95 (W), 0.6 for
/// every other character.
double textAdvance(wchar_t character);

/// Width of a text of height and width factor one, the sum of its advances in `fonts`. The
/// drawing's own codes count as what they show:
/// %%c, %%d, %%p one symbol, %%nnn the character of that number, %%% a percent sign, and %%u, %%o,
/// %%k nothing. Never zero for visible text.
double textWidth(const wchar_t* text, const TextFonts& fonts = {});

} // namespace host_db
