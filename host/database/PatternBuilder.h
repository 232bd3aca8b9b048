#pragma once

#include "database/AcDbDatabase.h"
#include "database/LinetypeDash.h"
#include "database/LinetypeFile.h"
#include "database/SymbolTables.h"

#include <string>
#include <utility>
#include <vector>

namespace host_db {

/// Makes the dashes that a file defines into those of a drawing, which stays as it is up to
/// `settle`.
class PatternBuilder {
public:
    explicit PatternBuilder(const AcDbDatabase& database)
        : database_(database), styles_(*peek<AcDbSymbolTable>(database.textStyleTableId())) {}

    /// Adds one dash. eInvalidKey when the drawing lacks its text style; eFileNotFound, also when
    /// the file lacks the shape, and eFileAccessErr of its shape file.
    Acad::ErrorStatus add(const LinetypeDefinition::Dash& read);
    /// Gives the shapes their style records, new ones where the drawing lacks them. On a status
    /// other than eOk, that of opening the text style table for write, nothing has changed.
    Acad::ErrorStatus settle();
    /// The pattern; to be called once, last.
    std::vector<LinetypeDash> take() { return std::move(dashes_); }

private:
    Acad::ErrorStatus findText(const LinetypeDefinition::Dash& read, LinetypeDash& dash) const;
    Acad::ErrorStatus findShapeOf(const LinetypeDefinition::Dash& read, LinetypeDash& dash);

    struct Shape {
        std::size_t dash; ///< index in the pattern
        std::wstring file;
    };

    const AcDbDatabase& database_;
    const AcDbSymbolTable& styles_;
    std::vector<LinetypeDash> dashes_;
    std::vector<Shape> shapes_;
};

} // namespace host_db
