// What somebody types into the command line, and chains given to commands: whatever it is, the
// drawing can be saved afterwards, and taken back it is the drawing that it was.

#include "Demand.h"
#include "FuzzDrawing.h"

#include "application/HostRecorder.h"
#include "TKVltSearchModule18.h"

namespace {

using fuzz::ByteReader;
using fuzz::demand;

constexpr const wchar_t* kWords[] = {
    L"trim ", L"break ", L"redraw ", L"undo ", L"Group ", L"End ", L"1 ",  L"99 ",
    L"All ",  L"Last ",  L"First ",  L"@ ",    L"\r",     L"\x1B", L"\b",  L" ",
    L"1,1 ",  L"4,4 ",   L"0,0,0 ",  L"@1,2 ", L"_.",     L"1e9 ", L"-1 ", L"Previous ",
};
constexpr int kWordCount = sizeof kWords / sizeof kWords[0];

std::wstring typedText(ByteReader& bytes) {
    std::wstring text;
    for (int words = bytes.below(24); words > 0; --words) {
        const int choice = bytes.below(kWordCount + 4);
        if (choice < kWordCount) {
            text += kWords[choice];
        } else if (choice == kWordCount) {
            text +=
                std::to_wstring(bytes.coordinate()) + L"," + std::to_wstring(bytes.coordinate());
        } else {
            text += bytes.text(12);
        }
    }
    return text;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static module_tests::DrawingBuilder builder;
    ByteReader bytes(data, size);
    const fuzz::FuzzDrawing drawing(builder, bytes);
    const host::LiveCounts before = host::liveCounts();
    for (int lines = bytes.below(4); lines >= 0; --lines) {
        std::wstring text = typedText(bytes);
        PelSendAcadCommand(text.data());
    }
    PelClearLastCommand();
    demand(host::liveCounts() == before, "what was taken from the host is given back");
    drawing.saved();
    return 0;
}
