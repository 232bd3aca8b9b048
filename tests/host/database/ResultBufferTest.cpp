#include "database/ResultBuffer.h"

#include "database/ResultItems.h"

#include <gtest/gtest.h>

#include <cstring>

namespace {

class ResultBufferTest : public ::testing::Test {
protected:
    ~ResultBufferTest() override { EXPECT_EQ(host_db::liveResultBuffers(), before_); }

    std::size_t before_ = host_db::liveResultBuffers();
};

TEST_F(ResultBufferTest, ABuiltListHoldsEachKindOfValue) {
    const ads_point point = {1.0, 2.0, 3.0};
    const ads_name name = {11, 22};
    char bytes[] = {1, 0, 2};
    const ads_binary binary = {3, bytes};
    resbuf* chain =
        acutBuildList(RTDXF0, L"LINE", 8, L"水", 10, point, 40, 2.5, 70, -3, 90, 100000, 160,
                      Adesk::Int64{1} << 40, 330, name, 310, &binary, RTSTR, L"end", 0);
    ASSERT_NE(chain, nullptr);
    EXPECT_EQ(host_db::liveResultBuffers(), before_ + 10);
    const resbuf* item = chain;
    EXPECT_EQ(item->restype, 0);
    EXPECT_STREQ(item->resval.rstring, L"LINE");
    item = item->rbnext;
    EXPECT_STREQ(item->resval.rstring, L"水");
    item = item->rbnext;
    EXPECT_EQ(item->resval.rpoint[2], 3.0);
    item = item->rbnext;
    EXPECT_EQ(item->resval.rreal, 2.5);
    item = item->rbnext;
    EXPECT_EQ(item->resval.rint, -3);
    item = item->rbnext;
    EXPECT_EQ(item->resval.rlong, 100000);
    item = item->rbnext;
    EXPECT_EQ(item->resval.mnInt64, 1099511627776);
    item = item->rbnext;
    EXPECT_EQ(item->resval.rlname[0], 11);
    EXPECT_EQ(item->resval.rlname[1], 22);
    item = item->rbnext;
    ASSERT_EQ(item->resval.rbinary.clen, 3);
    EXPECT_EQ(std::memcmp(item->resval.rbinary.buf, bytes, 3), 0);
    EXPECT_NE(item->resval.rbinary.buf, bytes);
    item = item->rbnext;
    EXPECT_EQ(item->restype, RTSTR);
    EXPECT_EQ(item->rbnext, nullptr);
    EXPECT_EQ(acutRelRb(chain), RTNORM);
}

TEST_F(ResultBufferTest, ZeroAndRtnoneEndAList) {
    EXPECT_EQ(acutBuildList(0), nullptr);
    EXPECT_EQ(acutBuildList(RTNONE), nullptr);
    resbuf* chain = acutBuildList(8, L"a", RTNONE, 8, L"b", 0);
    ASSERT_NE(chain, nullptr);
    EXPECT_EQ(chain->rbnext, nullptr);
    acutRelRb(chain);
}

TEST_F(ResultBufferTest, TheExtendedDataMarkTakesNoValue) {
    resbuf* chain = acutBuildList(-4, L"<or", -3, 1001, L"A", -3, 1001, L"B", -4, L"or>", 0);
    const short types[] = {-4, -3, 1001, -3, 1001, -4};
    const resbuf* item = chain;
    for (const short type : types) {
        ASSERT_NE(item, nullptr);
        EXPECT_EQ(item->restype, type);
        item = item->rbnext;
    }
    EXPECT_EQ(item, nullptr);
    acutRelRb(chain);
}

TEST_F(ResultBufferTest, AnUnknownCodeGivesNoList) {
    EXPECT_EQ(acutBuildList(8, L"a", 700, 1, 0), nullptr);
}

TEST_F(ResultBufferTest, NewAndReleasedItemsAreCounted) {
    resbuf* item = acutNewRb(RTSHORT);
    EXPECT_EQ(item->restype, RTSHORT);
    EXPECT_EQ(item->resval.rint, 0);
    EXPECT_EQ(item->rbnext, nullptr);
    EXPECT_EQ(host_db::liveResultBuffers(), before_ + 1);
    acutRelRb(item);
    EXPECT_EQ(acutRelRb(nullptr), RTNORM);
}

TEST_F(ResultBufferTest, ALongChainIsReleasedWithoutDepth) {
    resbuf* chain = nullptr;
    for (int i = 0; i < 1'000'000; ++i) {
        resbuf* item = acutNewRb(70);
        item->rbnext = chain;
        chain = item;
    }
    acutRelRb(chain);
    EXPECT_EQ(host_db::liveResultBuffers(), before_);
}

TEST_F(ResultBufferTest, ItemsKeepTheChainsValues) {
    const ads_point point = {1.0, 2.0, 3.0};
    resbuf* chain =
        acutBuildList(1001, L"A", 1000, L"x", 1010, point, 1040, 0.5, 1070, -7, 1071, 70000, 0);
    const host_db::ResultItems items = host_db::itemsOf(chain);
    acutRelRb(chain);
    ASSERT_EQ(items.size(), 6U);
    resbuf* again = host_db::chainOf(items);
    EXPECT_STREQ(again->rbnext->resval.rstring, L"x");
    EXPECT_EQ(again->rbnext->rbnext->resval.rpoint[1], 2.0);
    EXPECT_EQ(again->rbnext->rbnext->rbnext->resval.rreal, 0.5);
    EXPECT_EQ(again->rbnext->rbnext->rbnext->rbnext->resval.rint, -7);
    EXPECT_EQ(again->rbnext->rbnext->rbnext->rbnext->rbnext->resval.rlong, 70000);
    acutRelRb(again);
    EXPECT_EQ(host_db::chainOf({}), nullptr);
}

TEST_F(ResultBufferTest, StringsAreCopiedAndFreed) {
    ACHAR* text = nullptr;
    EXPECT_EQ(acutUpdString(L"first", text), RTNORM);
    EXPECT_EQ(acutUpdString(L"second", text), RTNORM);
    EXPECT_STREQ(text, L"second");
    acutDelString(text);
    EXPECT_EQ(text, nullptr);
    EXPECT_EQ(acutNewString(nullptr, text), RTNORM);
    EXPECT_EQ(text, nullptr);
}

} // namespace
