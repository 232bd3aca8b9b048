#include "host/editor/CommandFixture.h"

#include "database/AcDbText.h"
#include "database/SymbolTableSearch.h"

namespace {

class FenceTest : public CommandFixture {
protected:
    using Ids = std::vector<AcDbObjectId>;

    /// What a mode selects; the chains are released. Empty for RTERROR.
    static Ids selected(const ACHAR* mode, resbuf* fence, resbuf* filter = nullptr) {
        ads_name set;
        const int result = acedSSGet(mode, fence, nullptr, filter, set);
        acutRelRb(fence);
        acutRelRb(filter);
        Ids ids;
        Adesk::Int32 length = 0;
        if (result == RTNORM) {
            acedSSLength(set, &length);
        }
        for (Adesk::Int32 i = 0; i < length; ++i) {
            ads_name name;
            acedSSName(set, i, name);
            ids.push_back(AcDbObjectId::fromOldId(name[0]));
        }
        if (result == RTNORM) {
            acedSSFree(set);
        }
        return ids;
    }

    static resbuf* fence(std::initializer_list<AcGePoint3d> points) {
        resbuf* head = nullptr;
        resbuf** tail = &head;
        for (const AcGePoint3d& point : points) {
            *tail = acutBuildList(RTPOINT, asDblArray(point), 0);
            tail = &(*tail)->rbnext;
        }
        return head;
    }

    static resbuf* square() {
        return fence({{0, 5, 0}, {0, 0, 0}, {5, 0, 0}, {5, 5, 0}, {0, 5, 0}});
    }
};

TEST_F(FenceTest, WhatCrossesTheFenceIsTakenInDrawingOrder) {
    const AcDbObjectId far = addLine({7, 0, 0}, {7, 9, 0});
    const AcDbObjectId top = addLine({3, 4, 0}, {3, 9, 0});
    const AcDbObjectId inside = addLine({1, 1, 0}, {2, 2, 0});
    const AcDbObjectId left = addLine({-1, 3, 0}, {1, 3, 0});
    EXPECT_EQ(selected(L"F", square()), (Ids{top, left}));
    EXPECT_EQ(selected(L"_f", square()), (Ids{top, left}));
    EXPECT_TRUE(far.isValid() && inside.isValid());
}

TEST_F(FenceTest, HeightIsOfNoAccount) {
    const AcDbObjectId high = addLine({3, 4, 900}, {3, 9, 800});
    EXPECT_EQ(selected(L"F", square()), (Ids{high}));
}

TEST_F(FenceTest, ATouchAndALineOnTheFenceCount) {
    const AcDbObjectId touching = addLine({3, 5, 0}, {3, 9, 0});
    const AcDbObjectId along = addLine({1, 5, 0}, {2, 5, 0});
    const AcDbObjectId longer = addLine({-9, 0, 0}, {9, 0, 0});
    addLine({3, 5.001, 0}, {3, 9, 0});
    EXPECT_EQ(selected(L"F", square()), (Ids{touching, along, longer}));
}

TEST_F(FenceTest, CurvesBlocksAndTextsCross) {
    const AcDbObjectId circle = addCircle({2.5, 2.5, 0}, 3.0);
    addCircle({2.5, 2.5, 0}, 1.0);
    // Corners of the square lie 3.54 from its middle.
    addCircle({2.5, 2.5, 0}, 3.6);
    const AcDbObjectId polyline = addPolyline({{1, 1}, {9, 1}, {9, 9}});
    const AcDbObjectId block = addBlock(L"WELL");
    addTo(block, std::make_unique<AcDbCircle>(AcGePoint3d(), AcGeVector3d(0, 0, 1), 1.0));
    const AcDbObjectId well =
        add(std::make_unique<AcDbBlockReference>(AcGePoint3d(5.5, 2, 0), block));
    add(std::make_unique<AcDbBlockReference>(AcGePoint3d(6.5, 2, 0), block));
    const AcDbObjectId text =
        add(std::make_unique<AcDbText>(AcGePoint3d(2, 4, 0), L"X", AcDbObjectId::kNull, 3.0));
    EXPECT_EQ(selected(L"F", square()), (Ids{circle, polyline, well, text}));
}

TEST_F(FenceTest, TheFenceIsInTheUserCoordinateSystem) {
    AcGeMatrix3d ucs;
    ucs.setCoordSystem({100, 0, 0}, {0, 1, 0}, {-1, 0, 0}, {0, 0, 1});
    ASSERT_EQ(acedSetCurrentUCS(ucs), Acad::eOk);
    // The square's world corners: (100, 0) to (95, 5).
    const AcDbObjectId line = addLine({99, -1, 0}, {99, 1, 0});
    addLine({3, 4, 0}, {3, 9, 0});
    EXPECT_EQ(selected(L"F", square()), (Ids{line}));
}

TEST_F(FenceTest, TheFilterHolds) {
    acdbRegApp(L"管线系统");
    addLine({3, 4, 0}, {3, 9, 0});
    auto marked = std::make_unique<AcDbLine>(AcGePoint3d(4, 4, 0), AcGePoint3d(4, 9, 0));
    resbuf* chain = acutBuildList(1001, L"管线系统", 1000, L"x", 0);
    marked->setXData(chain);
    acutRelRb(chain);
    const AcDbObjectId id = add(std::move(marked));
    EXPECT_EQ(selected(L"F", square(), acutBuildList(-3, 1001, L"管线系统", 0)), (Ids{id}));
    EXPECT_EQ(selected(L"F", square(), acutBuildList(-3, 1001, L"管道系统", 0)), Ids());
}

TEST_F(FenceTest, WhatIsNotDrawnIsNotMet) {
    auto off = std::make_unique<AcDbLayerTableRecord>();
    off->setName(L"OFF");
    off->setIsOff(true);
    addRecord<AcDbLayerTable>(std::move(off));
    auto hidden = std::make_unique<AcDbLine>(AcGePoint3d(3, 4, 0), AcGePoint3d(3, 9, 0));
    hidden->setLayer(L"OFF");
    add(std::move(hidden));
    auto invisible = std::make_unique<AcDbLine>(AcGePoint3d(3, 4, 0), AcGePoint3d(3, 9, 0));
    invisible->setVisibility(AcDb::kInvisible);
    add(std::move(invisible));
    addTo(database().spaceIds()[1],
          std::make_unique<AcDbLine>(AcGePoint3d(3, 4, 0), AcGePoint3d(3, 9, 0)));
    EXPECT_EQ(selected(L"F", square()), Ids());
}

TEST_F(FenceTest, MalformedFencesAreErrors) {
    addLine({3, 4, 0}, {3, 9, 0});
    EXPECT_EQ(selected(L"F", nullptr), Ids());
    EXPECT_EQ(selected(L"F", fence({{0, 5, 0}})), Ids());
    EXPECT_EQ(selected(L"F", acutBuildList(RTSTR, L"x", RTSTR, L"y", 0)), Ids());
    EXPECT_EQ(selected(L"X", square()), Ids());
    EXPECT_EQ(selected(L"F", square()).size(), 1U);
}

TEST_F(FenceTest, PreviousAndLastAreModesOfTheirOwn) {
    EXPECT_EQ(selected(L"P", nullptr), Ids());
    EXPECT_EQ(selected(L"L", nullptr), Ids());
    const AcDbObjectId first = addLine({3, 4, 0}, {3, 9, 0});
    const AcDbObjectId second = addLine({4, 4, 0}, {4, 9, 0});
    const AcDbObjectId last = addLine({9, 9, 0}, {10, 10, 0});
    EXPECT_EQ(selected(L"L", nullptr), (Ids{last}));
    EXPECT_EQ(selected(L"F", square()), (Ids{first, second}));
    AcDbLine* line = nullptr;
    ASSERT_EQ(acdbOpenObject(line, first, AcDb::kForWrite), Acad::eOk);
    line->erase();
    line->close();
    EXPECT_EQ(selected(L"_P", nullptr), (Ids{second}));
}

} // namespace
