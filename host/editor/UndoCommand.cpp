#include "editor/UndoCommand.h"

#include "database/UndoJournal.h"
#include "platform/TextToNumber.h"

#include <cmath>
#include <optional>

namespace host_ed {
namespace {

/// Most steps that one command takes back.
constexpr double kMaxCount = 32767.0;

/// The number of steps that an input asks for; nullopt for what is no number of steps.
std::optional<std::size_t> countOf(const CommandInput& input) {
    if (input.isEnter()) {
        return 1;
    }
    double count = input.number;
    if (input.kind == CommandInput::Kind::Text) {
        const bool isWhole = input.text.size() <= 5 &&
                             input.text.find_first_not_of(L"0123456789") == std::wstring::npos;
        count = isWhole ? _wtoi(input.text.c_str()) : 0.0;
    } else if (input.kind != CommandInput::Kind::Number) {
        return std::nullopt;
    }
    const bool isCount = count >= 1.0 && count <= kMaxCount && count == std::floor(count);
    return isCount ? std::optional(static_cast<std::size_t>(count)) : std::nullopt;
}

} // namespace

CommandState UndoCommand::take(const CommandInput& input, const CommandContext& context) {
    host_db::UndoJournal& journal = context.database.undoJournal();
    const bool isText = input.kind == CommandInput::Kind::Text;
    if (isText && isKeyword(input.text, L"GROUP")) {
        journal.beginGroup();
        return CommandState::Done;
    }
    if (isText && isKeyword(input.text, L"END")) {
        journal.endGroup();
        return CommandState::Done;
    }
    const auto count = countOf(input);
    if (!count.has_value() || context.database.isWriteBlocked()) {
        return CommandState::Failed;
    }
    return journal.undo(*count) ? CommandState::Done : CommandState::Failed;
}

} // namespace host_ed
