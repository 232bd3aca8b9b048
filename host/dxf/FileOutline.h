#pragma once

#include "database/AcDbObjectId.h"
#include "database/SourceRange.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace host_dxf {

/// A part of a drawing file that holds records: a section, a table, a block definition. The
/// records of the part fill `bodyBegin` to `bodyEnd` without a gap; what is added to the part while
/// the drawing is open belongs at `bodyEnd`, before the group 0 that closes it.
struct FilePart {
    enum class Kind { Section, Table, Block };

    Kind kind = Kind::Section;
    std::string name; ///< as it stands in the file, undecoded
    SourceRange range;
    std::size_t bodyBegin = 0;
    std::size_t bodyEnd = 0;
    AcDbObjectId block; ///< of a block definition, else null
};

/// One variable of the HEADER section: its group 9 and the groups of its value.
struct HeaderVariable {
    std::string name; ///< with its dollar sign
    SourceRange range;
};

/// How a drawing file is laid out. With the ranges of the objects it accounts for every byte: a
/// file is its parts in their order, and each part its records in theirs.
struct FileOutline {
    std::vector<FilePart> parts; ///< in file order, a part before the parts inside it
    std::vector<HeaderVariable> variables;
    std::size_t endOfFile = 0;    ///< offset of the group 0 EOF
    std::string version;          ///< $ACADVER, empty when the file has none
    std::string codePage;         ///< $DWGCODEPAGE, empty when the file has none
    std::uint64_t handleSeed = 0; ///< $HANDSEED, 0 when the file has none
    bool hasHandles = false;      ///< at least one record has a handle
    /// Number of the database's objects when the file was read. Of those, the ones without bytes
    /// stand for what the file leaves unsaid; later ones were made by the user.
    std::size_t objectCount = 0;

    /// From R13 on: subclass markers, dictionaries and other objects. Versions compare as text; a
    /// file without one is as old as those that could leave it out.
    bool hasMarkers() const { return version >= "AC1012"; }
};

} // namespace host_dxf
