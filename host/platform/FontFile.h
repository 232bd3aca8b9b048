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
/// case. A file is sought by host::findSupportFile, then, its path left aside, in the support
/// folders and in the font folders of the system and of the user; a name without one of these
/// endings is tried with each of them, and then as a family's name, of the fonts in the support
/// folders first. Every name that host::familyNames tells counts, and of a family the face whose
/// style is called Regular, Book, Roman or Normal. Costs a walk through the font folders at the
/// first call, a look into each font file there at the first call for a family, and a look into
/// each font in the support folders at every call for one.
FontFile findFontFile(std::wstring_view name);

} // namespace host
