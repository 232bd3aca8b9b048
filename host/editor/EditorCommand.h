#pragma once

#include "database/AcDbDatabase.h"
#include "editor/CommandInput.h"
#include "editor/EditorSession.h"

#include <memory>
#include <string>

namespace host_ed {

/// What a command works on.
struct CommandContext {
    AcDbDatabase& database;
    EditorSession& session;
};

/// Where a command stands after an input.
enum class CommandState {
    /// It waits for the next input.
    Waiting,
    Done,
    /// It was given what it cannot take, or the drawing refused; what it changed is taken back by
    /// whoever runs it.
    Failed
};

/// A command at work, fed one input after the other.
class EditorCommand {
public:
    EditorCommand() = default;
    EditorCommand(const EditorCommand&) = delete;
    EditorCommand& operator=(const EditorCommand&) = delete;
    virtual ~EditorCommand();

    /// The command's name in upper case.
    virtual const wchar_t* name() const = 0;
    virtual CommandState begin(const CommandContext& context);
    virtual CommandState take(const CommandInput& input, const CommandContext& context) = 0;
};

/// The command of a name in any case, "_" and "." before it left aside; nullptr for an unknown one.
std::unique_ptr<EditorCommand> makeCommand(const std::wstring& name);

/// The command's name or option as typed, in upper case without the "_" and "." before it.
std::wstring plainName(const std::wstring& typed);

/// Whether the typed text means the keyword: it is one or more of its first letters.
bool isKeyword(const std::wstring& typed, const std::wstring& keyword);

} // namespace host_ed
