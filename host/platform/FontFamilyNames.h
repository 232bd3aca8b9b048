#pragma once

#include "platform/FontLibrary.h"

#include <string>
#include <vector>

namespace host {

/// All names of a face's family, in every language in which the font tells them as Unicode, the one
/// that FreeType prefers first; the same name may come twice. Empty for a face without a name.
std::vector<std::wstring> familyNames(FT_Face face);

} // namespace host
