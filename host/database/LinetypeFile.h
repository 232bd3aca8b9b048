#pragma once

#include "database/AcadErrorStatus.h"

#include <string>
#include <string_view>
#include <vector>

namespace host_db {

/// A linetype as a file of linetypes defines it.
struct LinetypeDefinition {
    /// What is drawn at the end of a dash.
    enum class Mark { None, Text, Shape };

    struct Dash {
        double length = 0.0;
        Mark mark = Mark::None;
        std::wstring text;  ///< the text, or the shape's name
        std::wstring style; ///< the text style's name, or the shape file's
        double scale = 1.0;
        double rotation = 0.0; ///< radians
        bool isAbsolute = false;
        bool isUpright = false;
        double x = 0.0;
        double y = 0.0;
    };

    std::wstring name; ///< in the file's spelling
    std::wstring description;
    std::vector<Dash> dashes;
};

/// The text of a file of linetypes, or of a name in a shape file: UTF-8 (a byte-order mark is
/// accepted), or the code page 936 when the bytes are no UTF-8.
std::wstring decodeLinetypeFile(std::string_view bytes);

/// Finds a linetype by its name in any case and reads its definition; of one name twice the first
/// counts. eKeyNotFound when the file does not define it, eInvalidInput when it does but the
/// definition is malformed; `definition` is untouched then. Definitions of other names are not
/// looked at.
///
/// A definition is a line `*NAME,description` and below it a line `A,dash,dash,...` with 2 to 12
/// dashes, the first one not below 0. The latter goes on in the next line when it ends with a comma
/// or the next one begins with one; any other line up to the next name is passed over. `;` begins a
/// comment, as a line or behind the dashes, blank lines do not count, and the mark 0x1A that ends
/// some files ends a line. Behind a dash may stand a text, `["TEXT",STYLE,S=scale,R=angle,X=along,
/// Y=across]`, or a shape, `[SHAPE,FILE,...]` with the same settings: in any order and none of them
/// needed. The angle counts from the line's direction, with `A=` in the place of `R=` from the X
/// axis, and with `U=` from the line but never upside down; it is in degrees, or behind a number
/// with the letter r in radians or g in grads.
Acad::ErrorStatus findLinetype(std::wstring_view file, std::wstring_view name,
                               LinetypeDefinition& definition);

} // namespace host_db
