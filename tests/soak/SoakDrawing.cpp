#include "SoakDrawing.h"

#include <array>

namespace soak {

namespace {

constexpr int kRoundsALargeOne = 50;
constexpr int kPlaceOfLargeOne = 9;

// The numbers of nodes and runs are those of the truth files, the ways those of examples/README.md.
//
// What a lowered pipe comes out with: both its heights sink by the drop. From the well at its start
// the lowering then runs down the water over the very segment, which the search saw at its old
// heights: it sinks until its lower height is the lowered one at the well, and its higher height by
// as much. The lower one goes to the start of a pipe that flows "SE".
// - 301, 92.49 to 92.4, by 0.5: 91.99; 92.4 sinks by 0.41, so 92.49 becomes 92.08.
// - 404, 93.255 to 93.177, by 0.5: 92.755; 93.177 sinks by 0.422, so 93.255 becomes 92.833.
// - 2004, 3.73 to 0.25, by 0.5: 3.23, above 0.25, so nothing sinks any more: 3.23 and -0.25.
// - 2001, 0.991 to 0.92, by 0.5: 0.491; 0.92 sinks by 0.429, so 0.991 becomes 0.562.
const std::array<SoakDrawing, 4> kSmall{{
    {"town.dxf", L"501", L"108", {}, 1, 20, 8, false, {L"301", 0.5, L"91.99", L"92.08"}},
    {"town.dxf", L"601", L"", {6, 54, 0}, 1, 9, 0, true, {}},
    {"town.dxf", L"502", L"212", {}, 1, 13, 8, false, {L"404", 0.5, L"92.755", L"92.833"}},
    {"epa-user1.dxf", L"103C", L"1021", {}, 1, 59, 21, false, {L"2004", 0.5, L"3.23", L"-0.25"}},
}};
const std::array<SoakDrawing, 3> kLarge{{
    {"brambleton.dxf", L"1176", L"1174", {}, 1, 374, 71, false, {L"2001", 0.5, L"0.491", L"0.562"}},
    {"l-town-tree.dxf", L"2001", L"", {2760.32, 1079.74, 0}, 1, 762, 0, true, {}},
    {"l-town-whole.dxf", L"2001", L"", {2760.32, 1079.74, 0}, 0, 0, 0, true, {}},
}};

} // namespace

const SoakDrawing& drawingOfRound(int round) {
    const auto number = static_cast<std::size_t>(round);
    if (round % kRoundsALargeOne == kPlaceOfLargeOne) {
        return kLarge[number / kRoundsALargeOne % kLarge.size()];
    }
    return kSmall[number % kSmall.size()];
}

} // namespace soak
