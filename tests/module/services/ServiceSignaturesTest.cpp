// The signatures of the services that sibling modules link to, settled when this compiles.

#include "TKVltSearchModule18.h"

#include <gtest/gtest.h>

#include <type_traits>

namespace module_tests {
namespace {

template<class Actual, class Expected>
constexpr bool kIs = std::is_same_v<Actual, Expected>;

TEST(ServiceSignatures, FunctionsHaveTheSignaturesOfTheBoundary) {
    EXPECT_TRUE((kIs<decltype(&GetSingleSeg), int (*)(Seg&, const AcDbObjectId&)>));
    EXPECT_TRUE((kIs<decltype(&GetSegsForCollideTest),
                     int (*)(CArray<Seg, Seg&>&, const AcDbObjectIdArray&, int)>));
    EXPECT_TRUE((kIs<decltype(&LowerHeightForCollideTest), int (*)(AcDbObjectId, double)>));
    EXPECT_TRUE((kIs<decltype(&FindGravityPath), int (*)(GravitySearchObject*&, AcDbObjectId&)>));
    EXPECT_TRUE(
        (kIs<decltype(&FindLineEntity), int (*)(CArray<PressureSeg, PressureSeg&>&, CString)>));
    EXPECT_TRUE((kIs<decltype(&DeleteSeg), int (*)(GravitySearchObject*&, int)>));
    EXPECT_TRUE((kIs<decltype(&PelIsIdArrSame),
                     int (*)(const AcDbObjectIdArray&, const AcDbObjectIdArray&)>));
}

} // namespace
} // namespace module_tests
