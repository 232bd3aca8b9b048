#pragma once

#include <string>
#include <string_view>

namespace host {

/// A face in a font file.
struct FontFile {
    std::string path; ///< UTF-8; empty for none
    long face = 0;    ///< index of the face in the file
};

/// Finds an outline font (.ttf, .ttc, .otf, .otc) by the name of its file or of its family, in any
/// case. A file is sought by host::findSupportFile, then, its path left aside, in the system's font
/// folders and those of the user; a name without one of these endings is tried with each of them,
/// and then as a family's name. Of a family the face counts whose style is
/// called Regular, Book, Roman or Normal. Costs a walk through the font
/// folders at the first call, and a look into each font file at the first call for a family.
FontFile findFontFile(std::wstring_view name);

} // namespace host
