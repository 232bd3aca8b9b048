#include "database/ShapeFile.h"

#include "ShapeFileBytes.h"

#include <gtest/gtest.h>

namespace {

using database_test::shapeFileBytes;
using host_db::findShape;

/// The bytes written out: two shapes, 130 "AB" and 258 "C".
std::string twoShapes() {
    using namespace std::string_literals;
    return "Some-86 shapes V1.1\r\n\x1A"
           "\x82\x00\x02\x01\x02\x00" // 130 to 258, 2 of them
           "\x82\x00\x05\x00"         // 130: 5 bytes
           "\x02\x01\x04\x00"         // 258: 4 bytes
           "AB\x00\x10\x00"
           "C\x00\x24\x00"
           "EOF"s;
}

TEST(ShapeFileTest, ShapeIsFoundByItsNameInAnyCase) {
    EXPECT_EQ(findShape(twoShapes(), L"AB"), 130);
    EXPECT_EQ(findShape(twoShapes(), L"aB"), 130);
    EXPECT_EQ(findShape(twoShapes(), L"c"), 258);
    EXPECT_EQ(findShape(twoShapes(), L"A"), std::nullopt);
    EXPECT_EQ(findShape(twoShapes(), L"EOF"), std::nullopt);
    EXPECT_EQ(findShape(twoShapes(), L""), std::nullopt);
}

TEST(ShapeFileTest, OfOneNameTwiceTheFirstCounts) {
    EXPECT_EQ(findShape(shapeFileBytes({{9, "X"}, {3, "x"}}), L"X"), 9);
}

TEST(ShapeFileTest, NumberZeroIsNoShape) {
    EXPECT_EQ(findShape(shapeFileBytes({{0, "X"}, {3, "X"}}), L"X"), 3);
}

TEST(ShapeFileTest, FileOfAnotherKindHasNone) {
    std::string file = twoShapes();
    file.replace(file.find("shapes"), 6, "bigfont");
    EXPECT_EQ(findShape(file, L"AB"), std::nullopt);
    EXPECT_EQ(findShape("", L"AB"), std::nullopt);
    EXPECT_EQ(findShape("shapes", L"AB"), std::nullopt);
}

TEST(ShapeFileTest, FileCutOffAnywhereGivesWhatStandsBeforeTheCut) {
    const std::string whole = twoShapes();
    const std::size_t first = whole.find("AB");
    const std::size_t second = first + 5;
    for (std::size_t size = 0; size <= whole.size(); ++size) {
        SCOPED_TRACE(size);
        // A copy of its own, so that reading behind it is seen.
        const std::string cut(whole, 0, size);
        EXPECT_EQ(findShape(cut, L"AB").has_value(), size >= first + 3);
        EXPECT_EQ(findShape(cut, L"C").has_value(), size >= second + 2);
    }
}

} // namespace
