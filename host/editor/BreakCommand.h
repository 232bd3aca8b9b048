#pragma once

#include "editor/EditorCommand.h"

#include <optional>

namespace host_ed {

/// "break": takes the part between two places out of an object, or parts it at one.
class BreakCommand : public EditorCommand {
public:
    const wchar_t* name() const override { return L"BREAK"; }
    CommandState take(const CommandInput& input, const CommandContext& context) override;

private:
    CommandState takeObject(const CommandInput& input, const CommandContext& context);
    CommandState cut(const AcGePoint3d& second) const;

    AcDbObjectId object_;
    /// The first point, given or taken from the place where the object was picked.
    std::optional<AcGePoint3d> first_;
    /// The first point is that of the pick, which "First" puts aside.
    bool firstIsPick_ = false;
};

} // namespace host_ed
