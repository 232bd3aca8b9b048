#include "TKVltSearchModule18.h"

#include "module/support/Compare.h"
#include "module/support/DrawingBuilder.h"

#include <cstdint>
#include <type_traits>

namespace module_tests {
namespace {

class SegTest : public DrawingTest {
protected:
    /// Marks every part of a copy: the kind and one field of each kind in both records.
    static void fill(Seg& seg) {
        seg.kind = 1;
        seg.pressure.pipeIds.append(AcDbObjectId::fromOldId(7));
        seg.pressure.diameter = 150;
        seg.pressure.material = L"PE";
        seg.gravity.pipeIds.append(AcDbObjectId::fromOldId(8));
        seg.gravity.diameter = 300;
        seg.gravity.material = L"PVC";
    }

    static void expectFilled(const Seg& seg) {
        EXPECT_EQ(seg.kind, 1);
        EXPECT_EQ(idsOf(seg.pressure.pipeIds), Ids{AcDbObjectId::fromOldId(7)});
        EXPECT_EQ(seg.pressure.diameter, 150);
        EXPECT_EQ(utf8(seg.pressure.material), "PE");
        EXPECT_EQ(idsOf(seg.gravity.pipeIds), Ids{AcDbObjectId::fromOldId(8)});
        EXPECT_EQ(seg.gravity.diameter, 300);
        EXPECT_EQ(utf8(seg.gravity.material), "PVC");
    }
};

TEST_F(SegTest, DefaultHasNoKindAndTwoDefaultRecords) {
    const Seg seg;
    EXPECT_EQ(seg.kind, -1);
    EXPECT_EQ(seg.pressure.pipeIds.length(), 0);
    EXPECT_EQ(seg.pressure.parent, -1);
    EXPECT_EQ(seg.gravity.pipeIds.length(), 0);
    EXPECT_EQ(seg.gravity.startWell, -1);
    EXPECT_EQ(seg.gravity.flowReversed, 1);
}

TEST_F(SegTest, CopyHasBothHalves) {
    Seg seg;
    fill(seg);
    const Seg copy(seg);
    expectFilled(copy);
}

TEST_F(SegTest, AssignmentHasBothHalvesAndCutsNoTies) {
    Seg seg;
    fill(seg);
    Seg copy;
    copy = seg;
    seg.kind = 0;
    seg.pressure.pipeIds.removeAll();
    seg.gravity.pipeIds.removeAll();
    expectFilled(copy);
}

TEST_F(SegTest, AssignmentToItselfChangesNothing) {
    Seg seg;
    fill(seg);
    Seg& same = seg;
    seg = same;
    expectFilled(seg);
}

TEST_F(SegTest, ArrayHoldsCopies) {
    CArray<Seg, Seg&> segs;
    for (int i = 0; i < 20; ++i) {
        Seg seg;
        fill(seg);
        segs.Add(seg);
    }
    segs.RemoveAt(0, 10);
    ASSERT_EQ(segs.GetSize(), 10);
    expectFilled(segs.GetAt(9));
}

TEST_F(SegTest, FieldsStandInTheOrderOfTheBoundary) {
    const Seg seg;
    EXPECT_EQ(static_cast<const void*>(&seg), static_cast<const void*>(&seg.kind));
    EXPECT_LT(static_cast<const void*>(&seg.kind), static_cast<const void*>(&seg.pressure));
    EXPECT_LT(static_cast<const void*>(&seg.pressure), static_cast<const void*>(&seg.gravity));
    EXPECT_TRUE((std::is_same_v<decltype(Seg::kind), std::int32_t>));
}

TEST_F(SegTest, CopiesTakeANonConstReferenceAndNothingIsVirtual) {
    EXPECT_TRUE((std::is_constructible_v<Seg, Seg&>));
    EXPECT_FALSE((std::is_constructible_v<Seg, const Seg&>));
    EXPECT_TRUE((std::is_assignable_v<Seg&, Seg&>));
    EXPECT_FALSE((std::is_assignable_v<Seg&, const Seg&>));
    EXPECT_FALSE(std::is_polymorphic_v<Seg>);
}

} // namespace
} // namespace module_tests
