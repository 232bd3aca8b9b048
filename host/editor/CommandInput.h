#pragma once

#include "database/AcDbObjectId.h"
#include "database/ResultBuffer.h"
#include "geometry/AcGeMatrix3d.h"
#include "geometry/AcGePoint3d.h"

#include <optional>
#include <string>
#include <vector>

namespace host_ed {

/// One input of a command.
struct CommandInput {
    enum class Kind { Text, Number, Point, Entity, Set };

    Kind kind = Kind::Text;
    /// Of Text; empty for Enter.
    std::wstring text;
    /// Of Number.
    double number = 0.0;
    /// Of Point; of Entity, when it was picked at a place. World coordinates.
    std::optional<AcGePoint3d> point;
    /// Of Entity one, of Set any number.
    std::vector<AcDbObjectId> ids;

    bool isEnter() const { return kind == Kind::Text && text.empty(); }
};

/// The inputs of a chain; nullopt for one with a code that commands do not know, the name of no
/// entity or no set, or a list that is not an entity and a point. `ucs` leads from the points to
/// the world.
std::optional<std::vector<CommandInput>> inputsOf(const resbuf* chain, const AcGeMatrix3d& ucs);

/// The inputs of a typed line: each blank stands for Enter, and so does the line's end.
std::vector<CommandInput> inputsOf(const std::wstring& line);

/// The point that an input gives: a point, or a text "x,y", "x,y,z", with "@" in front from
/// `last`, "@" alone `last` itself. nullopt for anything else.
std::optional<AcGePoint3d> pointOf(const CommandInput& input, const AcGeMatrix3d& ucs,
                                   const AcGePoint3d& last);

/// The chain as listeners are told of it.
std::wstring textOf(const resbuf* chain);

/// A number as short as it can be read back.
std::wstring textOf(double number);

} // namespace host_ed
