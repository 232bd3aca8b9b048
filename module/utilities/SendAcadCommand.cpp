#include "utilities/SendAcadCommand.h"

namespace {

constexpr wchar_t kBackspace = 8;
constexpr wchar_t kEnter = 13;
constexpr wchar_t kEscape = 27;
/// What may stand on the command line and is wiped before typing.
constexpr int kWipedCharacters = 100;

void Type(wchar_t character) {
    CWnd* line = acedGetAcadDockCmdLine();
    SendMessageW(line->GetSafeHwnd(), WM_CHAR, static_cast<WPARAM>(character), 1);
}

} // namespace

void PelSendAcadCommand(wchar_t* text) {
    if (text == nullptr) {
        Type(kEscape);
        return;
    }
    for (int i = 0; i < kWipedCharacters; ++i) {
        Type(kBackspace);
    }
    for (const wchar_t* character = text; *character != L'\0'; ++character) {
        Type(*character);
    }
    Type(kEnter);
}
