#include "editor/CommandProcessor.h"

#include "database/AcDbHostApplicationServices.h"
#include "database/UndoJournal.h"
#include "editor/BreakCommand.h"
#include "editor/CommandRun.h"
#include "editor/EditorCommand.h"
#include "editor/RedrawCommand.h"
#include "editor/TrimCommand.h"
#include "editor/UndoCommand.h"
#include "platform/HostEvents.h"
#include "platform/WideCharacters.h"

#include <cstdarg>

namespace host_ed {

EditorCommand::~EditorCommand() = default;

CommandState EditorCommand::begin(const CommandContext& /*context*/) {
    return CommandState::Waiting;
}

std::wstring plainName(const std::wstring& typed) {
    const std::size_t first = std::min(typed.find_first_not_of(L"_."), typed.size());
    std::wstring name;
    for (const wchar_t character : typed.substr(first)) {
        name += host_text::upperCase(character);
    }
    return name;
}

bool isKeyword(const std::wstring& typed, const std::wstring& keyword) {
    const std::wstring name = plainName(typed);
    return !name.empty() && keyword.compare(0, name.size(), name) == 0;
}

std::unique_ptr<EditorCommand> makeCommand(const std::wstring& name) {
    const std::wstring plain = plainName(name);
    if (plain == L"TRIM") {
        return std::make_unique<TrimCommand>();
    }
    if (plain == L"BREAK") {
        return std::make_unique<BreakCommand>();
    }
    if (plain == L"REDRAW") {
        return std::make_unique<RedrawCommand>();
    }
    if (plain == L"UNDO") {
        return std::make_unique<UndoCommand>();
    }
    return nullptr;
}

namespace {

/// Feeds inputs to commands, one after the other.
class Run {
public:
    Run(AcDbDatabase& database, EditorSession& session, bool typed)
        : context_{database, session}, typed_(typed) {}

    bool feed(const CommandInput& input) {
        EditorSession& session = context_.session;
        if (session.pending == nullptr) {
            return input.isEnter() || begin(input);
        }
        return settle(session.pending->take(input, context_));
    }

    /// What programs changed since the last command is a step of its own.
    void start() {
        if (context_.session.pending == nullptr) {
            context_.database.undoJournal().closeStep();
        }
    }

    /// A program's list holds its commands whole; what was typed may go on with the next line.
    bool finish() {
        if (context_.session.pending == nullptr) {
            context_.database.undoJournal().closeStep();
            return true;
        }
        return context_.session.pendingTyped || settle(CommandState::Failed);
    }

private:
    bool begin(const CommandInput& input) {
        if (input.kind != CommandInput::Kind::Text) {
            // The command that has just ended was given too much.
            context_.database.undoJournal().rollBack();
            return false;
        }
        context_.database.undoJournal().closeStep();
        auto command = makeCommand(input.text);
        if (command == nullptr) {
            return false;
        }
        context_.session.pending = std::move(command);
        context_.session.pendingTyped = typed_;
        return settle(context_.session.pending->begin(context_));
    }

    bool settle(CommandState state) {
        if (state == CommandState::Waiting) {
            return true;
        }
        context_.session.pending.reset();
        if (state == CommandState::Failed) {
            context_.database.undoJournal().rollBack();
            return false;
        }
        return true;
    }

    CommandContext context_;
    bool typed_;
};

bool run(const std::vector<CommandInput>& inputs, bool typed) {
    AcDbDatabase* database = acdbHostApplicationServices()->workingDatabase();
    EditorSession* session = currentSession();
    if (database == nullptr || session == nullptr) {
        return false;
    }
    const host::EventSilence silence;
    Run run(*database, *session, typed);
    run.start();
    for (const CommandInput& input : inputs) {
        if (!run.feed(input)) {
            return false;
        }
    }
    return run.finish();
}

int runChain(const resbuf* chain) {
    if (chain == nullptr) {
        cancelTyped();
        return currentSession() == nullptr ? RTERROR : RTNORM;
    }
    const EditorSession* session = currentSession();
    if (session == nullptr) {
        return RTERROR;
    }
    const auto inputs = inputsOf(chain, session->ucs);
    return inputs.has_value() && run(*inputs, false) ? RTNORM : RTERROR;
}

int runAndTell(const resbuf* chain) {
    // The entities are named before the command, which may take them out of the drawing.
    const std::wstring line = host::isListening() ? L"command" + textOf(chain) : L"";
    const int result = runChain(chain);
    if (host::isListening()) {
        host::announce(line + (result == RTNORM ? L" = RTNORM" : L" = RTERROR"));
    }
    return result;
}

} // namespace

void runTyped(const std::wstring& line) {
    if (host::isListening()) {
        host::announce(L"typed " + line);
    }
    run(inputsOf(line), true);
}

void cancelTyped() {
    EditorSession* session = currentSession();
    if (session != nullptr && session->pending != nullptr) {
        session->pending.reset();
        acdbHostApplicationServices()->workingDatabase()->undoJournal().rollBack();
    }
}

} // namespace host_ed

int acedCommand(int type, ...) {
    va_list arguments;
    va_start(arguments, type);
    resbuf* chain = nullptr;
    const bool isKnown = host_db::buildList(type, arguments, chain);
    va_end(arguments);
    const int result = isKnown ? host_ed::runAndTell(chain) : RTERROR;
    acutRelRb(chain);
    return result;
}

int acedCmd(const resbuf* chain) {
    return host_ed::runAndTell(chain);
}
