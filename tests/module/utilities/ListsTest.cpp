#include "UtilitiesTest.h"

#include "utilities/Lists.h"

namespace module_tests {
namespace {

class ListsTest : public UtilitiesTest {};

int minIndexOf(std::initializer_list<double> values) {
    CArray<double, double> array;
    for (const double value : values) {
        array.Add(value);
    }
    return PelFindMinIndex(array);
}

TEST_F(ListsTest, IdIsFoundAnywhereInTheList) {
    const AcDbObjectId a = addLine({0, 0, 0}, {1, 0, 0});
    const AcDbObjectId b = addLine({0, 0, 0}, {1, 0, 0});
    AcDbObjectIdArray ids;
    EXPECT_EQ(PelIsIdInIdArr(ids, a), 0);
    ids.append(b);
    EXPECT_EQ(PelIsIdInIdArr(ids, a), 0);
    ids.append(a);
    EXPECT_EQ(PelIsIdInIdArr(ids, a), 1);
}

TEST_F(ListsTest, TextIsFoundWithRegardToCase) {
    CStringArray texts;
    texts.Add(L"PE");
    texts.Add(L"砼");
    EXPECT_EQ(PelIsCStringInCStringArray(texts, L"砼", 0), 1);
    EXPECT_EQ(PelIsCStringInCStringArray(texts, L"pe", 0), 0);
    EXPECT_EQ(PelIsCStringInCStringArray(CStringArray(), L"", 0), 0);
}

TEST_F(ListsTest, PlaceOfTheTextIsLostToTheCaller) {
    CStringArray texts;
    texts.Add(L"a");
    texts.Add(L"b");
    const int index = 77;
    EXPECT_EQ(PelIsCStringInCStringArray(texts, L"b", index), 1);
    EXPECT_EQ(PelIsCStringInCStringArray(texts, L"c", index), 0);
    EXPECT_EQ(index, 77);
}

TEST_F(ListsTest, FirstOfEqualLeastValuesWins) {
    EXPECT_EQ(minIndexOf({3.0, 1.0, 1.0}), 1);
    EXPECT_EQ(minIndexOf({-2.0, 1.0, -3.0}), 2);
}

TEST_F(ListsTest, OnlyValuesBelowTheLimitAreFound) {
    EXPECT_EQ(minIndexOf({}), -1);
    EXPECT_EQ(minIndexOf({99999999999999.9, 1e15}), -1);
    EXPECT_EQ(minIndexOf({1e15, 99999999999999.8}), 1);
}

} // namespace
} // namespace module_tests
