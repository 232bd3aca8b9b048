#pragma once

#include "database/AcDbObjectId.h"

namespace host {
class FontFace;
}

namespace host_db {

/// The fonts that texts of one style are drawn with.
class TextFonts {
public:
    /// The built-in table alone.
    TextFonts() = default;
    /// The fonts of a text style, looked for by the names of its font file and its big font file,
    /// and by the family that it names in its extended data; null or erased stands for none.
    explicit TextFonts(AcDbObjectId style);

    /// How far a character moves the pen, in ems, of which one is as long as the text is high: that
    /// of the first of font and big font that has the character, else that of
    /// host_db::textAdvance. 0 only for what shows nothing.
    double advance(wchar_t character) const;

private:
    const host::FontFace* font_ = nullptr;
    const host::FontFace* bigFont_ = nullptr;
};

} // namespace host_db
