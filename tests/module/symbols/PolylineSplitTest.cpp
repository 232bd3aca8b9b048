#include "host/dxf/SavedDrawing.h"
#include "module/utilities/UtilitiesTest.h"

#include "utilities/PelMultiPL2DblPl.h"

namespace module_tests {
namespace {

/// A vertex with what its stretch carries.
struct Corner {
    AcGePoint2d point;
    double bulge = 0.0;
    double startWidth = 0.0;
    double endWidth = 0.0;

    friend bool operator==(const Corner& a, const Corner& b) {
        return a.point.x == b.point.x && a.point.y == b.point.y && a.bulge == b.bulge &&
               a.startWidth == b.startWidth && a.endWidth == b.endWidth;
    }
};
using Corners = std::vector<Corner>;

const Corners kBay = {{{0, 0}, 0.0, 1.0, 2.0},
                      {{10, 0}, 1.0, 2.0, 2.0},
                      {{10, 8}, -0.5, 3.0, 0.5},
                      {{0, 8}, 0.25, 4.0, 0.0}};

class PolylineSplitTest : public UtilitiesTest {
protected:
    AcDbObjectId add(const Corners& corners, bool closed) {
        auto* const polyline = new AcDbPolyline;
        for (unsigned int i = 0; i < corners.size(); ++i) {
            polyline->addVertexAt(i, corners[i].point, corners[i].bulge, corners[i].startWidth,
                                  corners[i].endWidth);
        }
        polyline->setClosed(closed ? Adesk::kTrue : Adesk::kFalse);
        polyline->setElevation(2.5);
        return drawing.addEntity(polyline, {{L"管道系统", L"污水"}});
    }

    static const AcDbPolyline& polyline(AcDbObjectId id) {
        const auto* const found = host_db::peek<AcDbPolyline>(id);
        return found == nullptr ? throw std::runtime_error("no polyline") : *found;
    }

    static Corners cornersOf(AcDbObjectId id) {
        Corners corners(polyline(id).numVerts());
        for (unsigned int i = 0; i < corners.size(); ++i) {
            polyline(id).getPointAt(i, corners[i].point);
            polyline(id).getBulgeAt(i, corners[i].bulge);
            polyline(id).getWidthsAt(i, corners[i].startWidth, corners[i].endWidth);
        }
        return corners;
    }
};

TEST_F(PolylineSplitTest, WhereNoPieceCanBeEnteredThePolylineGoesAllTheSame) {
    const AcDbObjectId id = add(kBay, false);
    AcDbBlockTableRecord* space = nullptr;
    ASSERT_EQ(acdbOpenObject(space, drawing.database().modelSpaceId(), AcDb::kForRead), Acad::eOk);
    EXPECT_EQ(PelMultiPL2DblPl(id), 1);
    space->close();
    EXPECT_TRUE(isErased(id));
    EXPECT_EQ(entities(), Ids{});
}

TEST_F(PolylineSplitTest, TwoVerticesStay) {
    const AcDbObjectId two = add({kBay[0], kBay[1]}, false);
    forget();
    EXPECT_EQ(PelMultiPL2DblPl(two), 1);
    EXPECT_EQ(events(), (Lines{"open write " + handleOf(two), "close " + handleOf(two)}));
    EXPECT_EQ(entities(), Ids{two});
    EXPECT_EQ(cornersOf(two), (Corners{kBay[0], kBay[1]}));
}

TEST_F(PolylineSplitTest, OneVertexStays) {
    const AcDbObjectId one = add({kBay[0]}, false);
    EXPECT_EQ(PelMultiPL2DblPl(one), 1);
    EXPECT_EQ(entities(), Ids{one});
}

TEST_F(PolylineSplitTest, FourVerticesGiveThreePiecesInVertexOrderAndTheOldOneGoes) {
    const AcDbObjectId before = addLine({0, 0, 0}, {1, 0, 0});
    const AcDbObjectId four = add(kBay, false);
    EXPECT_EQ(PelMultiPL2DblPl(four), 1);
    EXPECT_TRUE(isErased(four));
    const Ids left = entities();
    ASSERT_EQ(left.size(), 4U);
    EXPECT_EQ(left[0], before);
    for (std::size_t i = 0; i < 3; ++i) {
        EXPECT_EQ(cornersOf(left[i + 1]), (Corners{kBay[i], kBay[i + 1]})) << i;
    }
}

TEST_F(PolylineSplitTest, OldOneIsErasedAfterThePiecesAreIn) {
    const AcDbObjectId three = add({kBay[0], kBay[1], kBay[2]}, false);
    const std::string space = handleOf(drawing.database().currentSpaceId());
    forget();
    PelMultiPL2DblPl(three);
    const Lines happened = events();
    const Ids pieces = entities();
    ASSERT_EQ(pieces.size(), 2U);
    EXPECT_EQ(happened,
              (Lines{"open write " + handleOf(three), "open write " + space,
                     "open write " + handleOf(pieces[0]), "close " + handleOf(pieces[0]),
                     "close " + space, "open write " + space, "open write " + handleOf(pieces[1]),
                     "close " + handleOf(pieces[1]), "close " + space, "erase " + handleOf(three),
                     "close " + handleOf(three)}));
}

TEST_F(PolylineSplitTest, ClosedOneGetsNoPieceForItsClosingStretch) {
    const AcDbObjectId closed = add(kBay, true);
    EXPECT_EQ(PelMultiPL2DblPl(closed), 1);
    const Ids pieces = entities();
    ASSERT_EQ(pieces.size(), 3U);
    EXPECT_EQ(cornersOf(pieces[2]), (Corners{kBay[2], kBay[3]}));
    for (const AcDbObjectId& piece : pieces) {
        EXPECT_TRUE(polyline(piece).isClosed()); // a property as any other
    }
}

TEST_F(PolylineSplitTest, PiecesKeepLayerTextsAndOtherProperties) {
    const AcDbObjectId layer = drawing.defineLayer(L"管线");
    const AcDbObjectId three = add({kBay[0], kBay[1], kBay[2]}, false);
    dxf_test::changeObject<AcDbPolyline>(three, [&](AcDbPolyline& each) {
        each.setLayer(layer);
        each.setColorIndex(3);
        each.setNormal({0, 0, -1});
    });
    ASSERT_EQ(PelMultiPL2DblPl(three), 1);
    ASSERT_EQ(entities().size(), 2U);
    for (const AcDbObjectId& piece : entities()) {
        CString text;
        EXPECT_EQ(GetXdata(piece, L"管道系统", text), 1);
        EXPECT_EQ(text, L"污水");
        EXPECT_EQ(polyline(piece).layerId(), layer);
        EXPECT_EQ(polyline(piece).colorIndex(), 3);
        EXPECT_EQ(polyline(piece).elevation(), 2.5);
        EXPECT_EQ(polyline(piece).normal().z, -1.0);
    }
}

TEST_F(PolylineSplitTest, LineIsNoPolyline) {
    const AcDbObjectId line = addLine({0, 0, 0}, {1, 0, 0});
    EXPECT_EQ(PelMultiPL2DblPl(line), 0);
    EXPECT_EQ(entities(), Ids{line});
}

TEST_F(PolylineSplitTest, WhatCannotBeOpenedForWriteStays) {
    const AcDbObjectId four = add(kBay, false);
    AcDbPolyline* reader = nullptr;
    ASSERT_EQ(acdbOpenObject(reader, four, AcDb::kForRead), Acad::eOk);
    EXPECT_EQ(PelMultiPL2DblPl(four), 0);
    reader->close();
    EXPECT_EQ(entities(), Ids{four});
    drawing.erase(four);
    EXPECT_EQ(PelMultiPL2DblPl(four), 0);
    EXPECT_EQ(PelMultiPL2DblPl(AcDbObjectId()), 0);
}

TEST_F(PolylineSplitTest, PiecesOfAClosedOneAreReadFromTheSavedDrawing) {
    ASSERT_EQ(PelMultiPL2DblPl(add(kBay, true)), 1);
    const std::string text = "(1000, \"污水\")";
    dxf_test::askAnother(
        drawing.database(), "pieces",
        {"len(space) == 3", "[e.closed for e in space] == [True, True, True]",
         "[e.dxf.elevation for e in space] == [2.5, 2.5, 2.5]",
         // x, y, start width, end width, bulge
         "list(map(tuple, space[0].get_points())) == [(0, 0, 1, 2, 0), (10, 0, 2, 2, 1)]",
         "list(map(tuple, space[1].get_points())) == [(10, 0, 2, 2, 1), (10, 8, 3, .5, -.5)]",
         "list(map(tuple, space[2].get_points())) == [(10, 8, 3, .5, -.5), (0, 8, 4, 0, .25)]",
         "[list(e.get_xdata(\"管道系统\")) for e in space] == [[" + text + "], [" + text + "], [" +
             text + "]]"});
}

} // namespace
} // namespace module_tests
