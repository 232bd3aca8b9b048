#include "records/LaterReading.h"
#include "module/walk/WalkTest.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

namespace module_tests {
namespace {

using tkvlt::LaterReading;

/// What was asked of one reading, in its order.
struct Asked {
    std::vector<int> read;
    std::vector<int> announced;
};

Asked ask(const LaterReading& later) {
    Asked asked;
    later.ReadInOrder([&](int part) { asked.announced.push_back(part); },
                      [&](int part) { asked.read.push_back(part); });
    return asked;
}

TEST(LaterReading, NothingIsReadOfNothing) {
    EXPECT_TRUE(ask(LaterReading(0)).read.empty());
    EXPECT_TRUE(ask(LaterReading(5)).read.empty());
    EXPECT_TRUE(ask(LaterReading(5)).announced.empty());
}

TEST(LaterReading, PartsAreReadInTheOrderOfTheirPlaces) {
    LaterReading later(10);
    later.Add(9, 0);
    later.Add(0, 3);
    later.Add(4, 1);
    EXPECT_EQ(ask(later).read, (std::vector<int>{3, 1, 0}));
}

TEST(LaterReading, WhatIsAnnouncedIsReadBehindThatInTheSameOrder) {
    constexpr int count = 100;
    LaterReading later(2 * count);
    for (int part = 0; part < count; ++part) {
        later.Add(2 * (count - 1 - part), part);
    }
    int read = 0;
    std::vector<int> announced;
    later.ReadInOrder(
        [&](int part) {
            announced.push_back(part);
            EXPECT_LT(part, count - read) << "read already"; // the last part is read first
        },
        [&](int) { ++read; });
    EXPECT_EQ(read, count);
    EXPECT_GT(announced.size(), 0U);
    EXPECT_TRUE(std::is_sorted(announced.rbegin(), announced.rend()));
    EXPECT_EQ(announced.back(), 0);
}

TEST(LaterReading, WhatTellsWhereTheRestLiesIsAnnouncedFirst) {
    constexpr int count = 100;
    LaterReading later(count);
    for (int part = 0; part < count; ++part) {
        later.Add(part, part);
    }
    int first = -1;
    int announced = -1;
    int read = -1;
    later.ReadInOrder([&](int part) { first = part; },
                      [&](int part) {
                          EXPECT_EQ(part, announced < 0 ? part : announced + 1);
                          announced = part;
                          EXPECT_TRUE(first > announced || first == count - 1);
                      },
                      [&](int part) {
                          EXPECT_EQ(part, read + 1);
                          read = part;
                          EXPECT_TRUE(announced > read || announced == count - 1);
                      });
    EXPECT_EQ(first, count - 1);
    EXPECT_EQ(announced, count - 1);
    EXPECT_EQ(read, count - 1);
}

/// A well, a pipe with texts and a well with a number.
class ReadLater : public WalkTest {
protected:
    void SetUp() override {
        WalkTest::SetUp();
        mode = tkvlt::CandidateMode::kIndexed;
        root = drawing.addWell({0, 0, 0}, {.number = L"W1"});
        drawing.addWell({50, 0, 0}, {.number = L"W2"});
        drawing.addPipe({0, 0, 0}, {50, 0, 0},
                        {.diameter = L"300", .flow = L"SE", .startElevation = L"7.5"});
    }

    static void expectTexts(const GravitySearchObject& found) {
        ASSERT_EQ(found.wells.GetSize(), 2);
        EXPECT_EQ(utf8(found.wells.GetAt(0).number), "W1");
        EXPECT_EQ(utf8(found.wells.GetAt(1).number), "W2");
        EXPECT_EQ(found.wells.GetAt(1).valid, 1);
        ASSERT_EQ(found.segs.GetSize(), 1);
        EXPECT_EQ(found.segs.GetAt(0).diameter, 300);
        EXPECT_EQ(utf8(found.segs.GetAt(0).flowText), "SE");
        EXPECT_EQ(found.segs.GetAt(0).startElevation, 7.5);
    }

    AcDbObjectId root;
};

TEST_F(ReadLater, ASearchThatFailsHasTheTextsOfWhatItFound) {
    // The end is not part of the network, which is told behind the walk.
    EXPECT_EQ(run(root, drawing.addWell({500, 0, 0})), 0);
    expectTexts(result);
}

TEST_F(ReadLater, AWalkByItselfBehindASearchReadsAtOnce) {
    ASSERT_EQ(run(root), 1);
    GravitySearchObject another;
    search->RestorePools();
    search->BeginAnother(&another);
    ASSERT_EQ(search->PlaceRootWell(), 1);
    EXPECT_EQ(search->WalkFromWell(0), 1);
    expectTexts(another);
}

} // namespace
} // namespace module_tests
