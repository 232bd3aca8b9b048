#pragma once

#include "editor/EditorCommand.h"

namespace host_ed {

/// "Undo": takes steps back, or begins or ends a group of steps.
class UndoCommand : public EditorCommand {
public:
    const wchar_t* name() const override { return L"UNDO"; }
    CommandState take(const CommandInput& input, const CommandContext& context) override;
};

} // namespace host_ed
