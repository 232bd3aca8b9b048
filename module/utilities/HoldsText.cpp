#include "utilities/HoldsText.h"

#include <algorithm>
#include <iterator>

namespace tkvlt {

bool HoldsText(const resbuf* item) {
    struct Range {
        short first;
        short last;
    };
    // The values of handles (320 to 329, 390 to 399, 480, 481, 1005) are texts too.
    constexpr Range kTextCodes[] = {{0, 9},     {100, 109}, {300, 309}, {320, 329},  {390, 399},
                                    {410, 419}, {430, 439}, {470, 481}, {999, 1003}, {1005, 1009}};
    return item != nullptr && item->resval.rstring != nullptr &&
           std::any_of(std::begin(kTextCodes), std::end(kTextCodes), [item](const Range& range) {
               return item->restype >= range.first && item->restype <= range.last;
           });
}

} // namespace tkvlt
