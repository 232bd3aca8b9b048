#pragma once

#include "editor/EditorCommand.h"

namespace host_ed {

/// "redraw": draws the view anew. Nothing is drawn here, so it is done as soon as it is begun.
class RedrawCommand : public EditorCommand {
public:
    const wchar_t* name() const override { return L"REDRAW"; }
    CommandState begin(const CommandContext& /*context*/) override { return CommandState::Done; }
    CommandState take(const CommandInput& /*input*/, const CommandContext& /*context*/) override {
        return CommandState::Failed;
    }
};

} // namespace host_ed
