#include "database/TextFonts.h"

#include "database/OpenObject.h"
#include "database/SymbolTables.h"
#include "database/TextMetrics.h"
#include "database/XdataText.h"
#include "platform/FontFace.h"

namespace host_db {
namespace {

const host::FontFace* fontOf(const AcDbTextStyleTableRecord& style) {
    const host::FontFace* const font = host::FontFace::named(style.fontFile().GetString());
    CString family;
    bool present = false;
    if (font == nullptr) {
        firstXdataString(style, L"ACAD", family, present);
    }
    return font != nullptr || family.IsEmpty() ? font : host::FontFace::named(family.GetString());
}

} // namespace

TextFonts::TextFonts(AcDbObjectId style) {
    const auto* const record = peek<AcDbTextStyleTableRecord>(style);
    if (record != nullptr) {
        font_ = fontOf(*record);
        bigFont_ = host::FontFace::named(record->bigFontFile().GetString());
    }
}

double TextFonts::advance(wchar_t character) const {
    const double builtIn = textAdvance(character);
    if (builtIn == 0.0) {
        return 0.0;
    }
    for (const host::FontFace* const font : {font_, bigFont_}) {
        const std::optional<double> advance =
            font == nullptr ? std::nullopt : font->advance(character);
        if (advance) {
            return *advance > 0.0 ? *advance : builtIn;
        }
    }
    return builtIn;
}

} // namespace host_db
