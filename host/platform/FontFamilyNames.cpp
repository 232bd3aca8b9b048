#include "platform/FontFamilyNames.h"

#include "platform/Encoding.h"

#include FT_SFNT_NAMES_H
#include FT_TRUETYPE_IDS_H

namespace host {
namespace {

bool isFamily(const FT_SfntName& name) {
    return name.name_id == TT_NAME_ID_FONT_FAMILY || name.name_id == TT_NAME_ID_TYPOGRAPHIC_FAMILY;
}

bool isUnicode(const FT_SfntName& name) {
    const bool isWindows =
        name.encoding_id == TT_MS_ID_UNICODE_CS || name.encoding_id == TT_MS_ID_UCS_4;
    return name.platform_id == TT_PLATFORM_APPLE_UNICODE ||
           (name.platform_id == TT_PLATFORM_MICROSOFT && isWindows);
}

/// The name of units of two bytes, the higher one first.
std::wstring textOf(const FT_SfntName& name) {
    std::wstring units;
    for (FT_UInt i = 0; i + 1 < name.string_len; i += 2) {
        units.push_back(static_cast<wchar_t>(name.string[i] * 256U + name.string[i + 1]));
    }
    // The way through UTF-8 joins the halves of characters beyond the first plane.
    return host_text::fromUtf8(host_text::toUtf8(units));
}

} // namespace

std::vector<std::wstring> familyNames(FT_Face face) {
    std::vector<std::wstring> names;
    if (face->family_name != nullptr) {
        names.push_back(host_text::fromUtf8(face->family_name));
    }
    for (FT_UInt i = 0; i < FT_Get_Sfnt_Name_Count(face); ++i) {
        FT_SfntName name{};
        if (FT_Get_Sfnt_Name(face, i, &name) == 0 && isFamily(name) && isUnicode(name)) {
            names.push_back(textOf(name));
        }
    }
    return names;
}

} // namespace host
