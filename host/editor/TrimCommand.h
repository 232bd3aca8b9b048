#pragma once

#include "editor/EditorCommand.h"

#include <vector>

namespace host_ed {

/// "trim": takes away the picked parts of objects, up to where edges cross them.
class TrimCommand : public EditorCommand {
public:
    const wchar_t* name() const override { return L"TRIM"; }
    CommandState take(const CommandInput& input, const CommandContext& context) override;

private:
    CommandState takeEdges(const CommandInput& input, const CommandContext& context);
    CommandState takePick(const CommandInput& input, const CommandContext& context);
    CommandState trim(AcDbObjectId object, const AcGePoint3d& at,
                      const CommandContext& context) const;

    std::vector<AcDbObjectId> edges_;
    bool hasEdges_ = false;
};

} // namespace host_ed
