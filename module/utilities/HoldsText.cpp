#include "utilities/HoldsText.h"

#include <algorithm>
#include <iterator>

namespace tkvlt {

bool HoldsText(const resbuf* item) {
    struct Range {
        short first;
        short last;
    };
    constexpr Range kTextCodes[] = {{0, 9},     {100, 102}, {300, 309},  {410, 419},
                                    {430, 439}, {470, 479}, {1000, 1003}};
    return item != nullptr && item->resval.rstring != nullptr &&
           std::any_of(std::begin(kTextCodes), std::end(kTextCodes), [item](const Range& range) {
               return item->restype >= range.first && item->restype <= range.last;
           });
}

} // namespace tkvlt
