#include "UtilitiesTest.h"

#include "utilities/BlockTrimCurve.h"
#include "utilities/BlockTrimLine.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <type_traits>
#include <vector>

namespace module_tests {
namespace {

class BlockTrimTest : public UtilitiesTest {
protected:
    void SetUp() override {
        UtilitiesTest::SetUp();
        setVariable(L"cmdEcho", 1);
        setVariable(L"snapmode", 1);
    }

    void TearDown() override {
        EXPECT_EQ(variable(L"cmdEcho"), 1);
        EXPECT_EQ(variable(L"snapmode"), 1);
        UtilitiesTest::TearDown();
    }

    /// A reference whose X scale factor is `scale`.
    AcDbObjectId addScaled(const AcGePoint3d& at, double scale) {
        const AcDbObjectId block = drawing.addBlock(at, L"WELL");
        AcDbBlockReference* opened = nullptr;
        EXPECT_EQ(acdbOpenObject(opened, block, AcDb::kForWrite), Acad::eOk);
        opened->setScaleFactors(AcGeScale3d(scale, 1.0, 1.0));
        opened->close();
        return block;
    }

    AcDbObjectId addTriangle(const AcGePoint2d& a, const AcGePoint2d& b, const AcGePoint2d& c) {
        return drawing.addPolyline({{a.x, a.y}, {b.x, b.y}, {c.x, c.y}});
    }

    std::vector<AcGePoint3d> verticesOf(const AcDbObjectId& id) {
        std::vector<AcGePoint3d> found;
        AcDbPolyline* opened = nullptr;
        EXPECT_EQ(acdbOpenObject(opened, id, AcDb::kForRead), Acad::eOk);
        for (unsigned int i = 0; i < opened->numVerts(); ++i) {
            AcGePoint3d point;
            opened->getPointAt(i, point);
            found.push_back(point);
        }
        opened->close();
        return found;
    }

    /// Smaller and larger x of each line of the drawing that lies along the x axis, in order.
    std::vector<double> alongX() {
        std::vector<double> found;
        for (const AcDbObjectId& id : entities()) {
            if (id != block) {
                const Ends ends = endsOf(id);
                found.push_back(std::min(ends.first.x, ends.second.x));
                found.push_back(std::max(ends.first.x, ends.second.x));
            }
        }
        std::sort(found.begin(), found.end());
        return found;
    }

    /// A block of these lines, referred to at the origin.
    AcDbObjectId addBlockOf(std::initializer_list<std::pair<AcGePoint3d, AcGePoint3d>> lines) {
        const AcDbObjectId definition =
            drawing.defineBlock(L"LINES", lines.begin()->first, lines.begin()->second);
        AcDbBlockTableRecord* record = nullptr;
        EXPECT_EQ(acdbOpenObject(record, definition, AcDb::kForWrite), Acad::eOk);
        for (const auto* line = lines.begin() + 1; line != lines.end(); ++line) {
            auto* entity = new AcDbLine(line->first, line->second);
            EXPECT_EQ(record->appendAcDbEntity(entity), Acad::eOk);
            entity->close();
        }
        record->close();
        return drawing.addBlock({0, 0, 0}, L"LINES");
    }

    static bool startsWith(const std::string& text, const std::string& head) {
        return text.rfind(head, 0) == 0;
    }

    AcDbObjectId block;
};

// With a temporary circle.

TEST_F(BlockTrimTest, LineIsTrimmedAtTheRimByTheHostsCommand) {
    block = addScaled({0, 0, 0}, 2.0);
    const AcDbObjectId line = addLine({0, 0, 0}, {10, 0, 0});
    forget();
    EXPECT_EQ(PelBlockTrimLine(line, block), Acad::eOk);
    EXPECT_TRUE(sameEnds(endsOf(line), {2, 0, 0}, {10, 0, 0}));
    const Lines commands = events("command");
    ASSERT_EQ(commands.size(), 1U);
    EXPECT_TRUE(startsWith(commands[0], "command \"trim\" entity:")) << commands[0];
    const std::string rest = " \"\" ( entity:" + handleOf(line) + " 0,0,0 ) \"\" = RTNORM";
    EXPECT_NE(commands[0].find(rest), std::string::npos) << commands[0];
    EXPECT_EQ(entities(), (Ids{block, line})) << "the circle is gone again";
}

TEST_F(BlockTrimTest, TrimLeavesTheSystemVariablesToItsCaller) {
    block = addScaled({0, 0, 0}, 2.0);
    const AcDbObjectId line = addLine({0, 0, 0}, {10, 0, 0});
    forget();
    PelBlockTrimLine(line, block);
    EXPECT_EQ(events("getvar"), Lines{});
    EXPECT_EQ(events("setvar"), Lines{});
}

TEST_F(BlockTrimTest, NegativeScaleHasTheSameRim) {
    block = addScaled({0, 0, 0}, -2.0);
    const AcDbObjectId line = addLine({0, 0, 0}, {10, 0, 0});
    EXPECT_EQ(PelBlockTrimLine(line, block), Acad::eOk);
    EXPECT_TRUE(sameEnds(endsOf(line), {2, 0, 0}, {10, 0, 0}));
}

TEST_F(BlockTrimTest, LineThroughTheBlockIsTrimmedInTheMiddle) {
    block = addScaled({0, 0, 0}, 2.0);
    const AcDbObjectId line = addLine({-10, 0, 0}, {10, 0, 0});
    EXPECT_EQ(PelBlockTrimLine(line, block), Acad::eOk);
    EXPECT_EQ(alongX(), (std::vector<double>{-10, -2, 2, 10}));
}

TEST_F(BlockTrimTest, PickedPlaceIsGivenInTheUsersCoordinates) {
    AcGeMatrix3d ucs;
    ucs.setCoordSystem({5, 0, 0}, {0, 1, 0}, {-1, 0, 0}, {0, 0, 1});
    ASSERT_EQ(acedSetCurrentUCS(ucs), Acad::eOk);
    block = addScaled({8, 0, 0}, 2.0);
    const AcDbObjectId line = addLine({8, 0, 0}, {18, 0, 0});
    forget();
    EXPECT_EQ(PelBlockTrimLine(line, block), Acad::eOk);
    // (8, 0) is 3 along the world's x axis from the origin (5, 0): the user's -y axis.
    ASSERT_EQ(events("command").size(), 1U);
    EXPECT_NE(events("command")[0].find(" 0,-3,0 )"), std::string::npos) << events("command")[0];
    EXPECT_TRUE(sameEnds(endsOf(line), {10, 0, 0}, {18, 0, 0}));
}

TEST_F(BlockTrimTest, WhatHasNoNameOrIsNoBlockGivesItsStatus) {
    const AcDbObjectId line = addLine({0, 0, 0}, {10, 0, 0});
    forget();
    EXPECT_EQ(PelBlockTrimLine(AcDbObjectId(), line), Acad::eNullObjectId);
    EXPECT_EQ(PelBlockTrimLine(line, AcDbObjectId()), Acad::eNullObjectId);
    EXPECT_EQ(PelBlockTrimLine(line, line), Acad::eNotThatKindOfClass);
    EXPECT_EQ(events("command"), Lines{});
    EXPECT_EQ(entities(), Ids{line});
}

// With a centre and a radius.

TEST_F(BlockTrimTest, EndInsideTheCircleMovesToTheRimWithoutACommand) {
    const AcDbObjectId line = addLine({0, 0, 0}, {10, 0, 0});
    forget();
    EXPECT_EQ(PelBlockTrimLine(line, {10, 0, 0}, 2.0), Acad::eOk);
    EXPECT_TRUE(sameEnds(endsOf(line), {0, 0, 0}, {8, 0, 0}));
    EXPECT_EQ(events("command"), Lines{});
    EXPECT_EQ(entities(), Ids{line});
}

TEST_F(BlockTrimTest, StartInsideTheCircleMovesToTheRim) {
    const AcDbObjectId line = addLine({0, 0, 0}, {10, 0, 0});
    EXPECT_EQ(PelBlockTrimLine(line, {0, 0, 0}, 2.0), Acad::eOk);
    EXPECT_TRUE(sameEnds(endsOf(line), {2, 0, 0}, {10, 0, 0}));
}

TEST_F(BlockTrimTest, LineThroughTheCircleIsBrokenAndTheVariablesComeBack) {
    const AcDbObjectId line = addLine({-10, 0, 0}, {10, 0, 0});
    const std::string handle = handleOf(line);
    forget();
    EXPECT_EQ(PelBlockTrimLine(line, {0, 0, 0}, 2.0), Acad::eOk);
    Lines all = events();
    ASSERT_EQ(all.size(), 10U);
    EXPECT_EQ((Lines{all.begin(), all.begin() + 6}),
              (Lines{"open write " + handle, "close " + handle, "getvar SNAPMODE",
                     "setvar SNAPMODE 0", "getvar CMDECHO", "setvar CMDECHO 0"}));
    // Which of the two places comes first is the host's.
    EXPECT_TRUE(all[6] == "command \"break\" set:1 -2,0,0 2,0,0 = RTNORM" ||
                all[6] == "command \"break\" set:1 2,0,0 -2,0,0 = RTNORM")
        << all[6];
    EXPECT_EQ((Lines{all.begin() + 7, all.end()}),
              (Lines{"setvar CMDECHO 1", "setvar SNAPMODE 1", "free"}));
    EXPECT_EQ(alongX(), (std::vector<double>{-10, -2, 2, 10}));
}

TEST_F(BlockTrimTest, BreakIsSentInWorldCoordinatesWhateverTheUsersAre) {
    AcGeMatrix3d ucs;
    ucs.setCoordSystem({0, 3, 0}, {1, 0, 0}, {0, 1, 0}, {0, 0, 1});
    ASSERT_EQ(acedSetCurrentUCS(ucs), Acad::eOk);
    const AcDbObjectId line = addLine({-10, 0, 0}, {10, 0, 0});
    forget();
    EXPECT_EQ(PelBlockTrimLine(line, {0, 0, 0}, 2.0), Acad::eOk);
    ASSERT_EQ(events("command").size(), 1U);
    const std::string sent = events("command")[0];
    EXPECT_NE(sent.find(" -2,0,0 "), std::string::npos) << sent;
    EXPECT_NE(sent.find(" 2,0,0 "), std::string::npos) << sent;
}

TEST_F(BlockTrimTest, LineThatTouchesTheCircleStays) {
    const AcDbObjectId line = addLine({-10, 2, 0}, {10, 2, 0});
    EXPECT_EQ(PelBlockTrimLine(line, {0, 0, 0}, 2.0), Acad::eOk);
    EXPECT_TRUE(sameEnds(endsOf(line), {-10, 2, 0}, {10, 2, 0}));
    EXPECT_EQ(entities(), Ids{line});
}

TEST_F(BlockTrimTest, LineAboveTheCentreByAnythingStays) {
    const AcDbObjectId line = addLine({-10, 0, 1e-12}, {10, 0, 1e-12});
    EXPECT_EQ(PelBlockTrimLine(line, {0, 0, 0}, 2.0), Acad::eOk);
    EXPECT_EQ(entities(), Ids{line});
    EXPECT_TRUE(sameEnds(endsOf(line), {-10, 0, 1e-12}, {10, 0, 1e-12}));
}

TEST_F(BlockTrimTest, LineWithBothEndsInsideStays) {
    const AcDbObjectId line = addLine({-1, 0, 0}, {1, 0, 0});
    EXPECT_EQ(PelBlockTrimLine(line, {0, 0, 0}, 2.0), Acad::eOk);
    EXPECT_TRUE(sameEnds(endsOf(line), {-1, 0, 0}, {1, 0, 0}));
}

TEST_F(BlockTrimTest, OfEndsEquallyNearTheEndMoves) {
    // Vertices 0 and 1 are both 1 from the centre; the circle is met at (2, 0) behind them.
    const AcDbObjectId polyline = addTriangle({-1, 0}, {1, 0}, {5, 0});
    EXPECT_EQ(PelBlockTrimLine(polyline, {0, 0, 0}, 2.0), Acad::eOk);
    const std::vector<AcGePoint3d> vertices = verticesOf(polyline);
    EXPECT_TRUE(samePoint(vertices[0], {-1, 0, 0}));
    EXPECT_TRUE(samePoint(vertices[1], {2, 0, 0}));
    EXPECT_TRUE(samePoint(vertices[2], {5, 0, 0}));
}

TEST_F(BlockTrimTest, OnlyTheFirstTwoVerticesOfAPolylineMove) {
    // Its second segment enters the circle about (10, 10) at (10, 8); of vertices 0 and 1 the
    // latter, 10 away, is nearer than the former, 14.1 away.
    const AcDbObjectId polyline = addTriangle({0, 0}, {10, 0}, {10, 10});
    EXPECT_EQ(PelBlockTrimLine(polyline, {10, 10, 0}, 2.0), Acad::eOk);
    const std::vector<AcGePoint3d> vertices = verticesOf(polyline);
    EXPECT_TRUE(samePoint(vertices[0], {0, 0, 0}));
    EXPECT_TRUE(samePoint(vertices[1], {10, 8, 0}));
    EXPECT_TRUE(samePoint(vertices[2], {10, 10, 0}));
}

TEST_F(BlockTrimTest, PolylineThroughTheCircleIsBroken) {
    const AcDbObjectId polyline = drawing.addPolyline({{-10, 0}, {10, 0}});
    forget();
    EXPECT_EQ(PelBlockTrimLine(polyline, {0, 0, 0}, 2.0), Acad::eOk);
    EXPECT_EQ(events("command").size(), 1U);
    const Ids left = entities();
    ASSERT_EQ(left.size(), 2U);
    std::vector<double> ends;
    for (const AcDbObjectId& id : left) {
        for (const AcGePoint3d& vertex : verticesOf(id)) {
            ends.push_back(vertex.x);
        }
    }
    std::sort(ends.begin(), ends.end());
    EXPECT_EQ(ends, (std::vector<double>{-10, -2, 2, 10}));
}

TEST_F(BlockTrimTest, FourMeetingPointsLeaveThePolylineWhole) {
    const AcDbObjectId polyline = drawing.addPolyline({{-10, 0}, {10, 0}, {10, 1}, {-10, 1}});
    forget();
    EXPECT_EQ(PelBlockTrimLine(polyline, {0, 0, 0}, 2.0), Acad::eOk);
    EXPECT_EQ(events("command"), Lines{});
    EXPECT_EQ(verticesOf(polyline).size(), 4U);
    EXPECT_TRUE(samePoint(verticesOf(polyline)[0], {-10, 0, 0}));
    EXPECT_TRUE(samePoint(verticesOf(polyline)[1], {10, 0, 0}));
}

TEST_F(BlockTrimTest, CircleThatGetsNoNameGivesItsStatusAndNoCommand) {
    block = addScaled({0, 0, 0}, 2.0);
    const AcDbObjectId line = addLine({0, 0, 0}, {10, 0, 0});
    // While the space is held open nothing can be added to it.
    AcDbBlockTableRecord* space = nullptr;
    ASSERT_EQ(acdbOpenObject(space, drawing.database().modelSpaceId(), AcDb::kForRead), Acad::eOk);
    forget();
    EXPECT_EQ(PelBlockTrimLine(line, block), Acad::eNullObjectId);
    EXPECT_EQ(events("command"), Lines{});
    space->close();
    EXPECT_TRUE(sameEnds(endsOf(line), {0, 0, 0}, {10, 0, 0}));
}

TEST_F(BlockTrimTest, FirstVertexOfAPolylineMovesWhenItIsNearer) {
    const AcDbObjectId polyline = addTriangle({0, 0}, {10, 0}, {20, 0});
    EXPECT_EQ(PelBlockTrimLine(polyline, {0, 0, 0}, 2.0), Acad::eOk);
    EXPECT_TRUE(samePoint(verticesOf(polyline)[0], {2, 0, 0}));
}

TEST_F(BlockTrimTest, OtherEntitiesStayAndAreNoError) {
    const AcDbObjectId circle =
        drawing.addCurve(new AcDbCircle(AcGePoint3d(1, 0, 0), AcGeVector3d(0, 0, 1), 2.0));
    const AcDbObjectId arc = drawing.addCurve(new AcDbArc(AcGePoint3d(1, 0, 0), 2.0, 0.0, kPi));
    const AcDbObjectId text = drawing.addText({0, 0, 0}, L"text");
    forget();
    for (const AcDbObjectId& id : {circle, arc, text}) {
        EXPECT_EQ(PelBlockTrimLine(id, {0, 0, 0}, 2.0), Acad::eOk);
    }
    EXPECT_EQ(events("command"), Lines{});
    EXPECT_EQ(entities(), (Ids{circle, arc, text}));
}

TEST_F(BlockTrimTest, EntityThatCannotBeOpenedGivesItsStatus) {
    const AcDbObjectId line = addLine({0, 0, 0}, {10, 0, 0});
    EXPECT_EQ(PelBlockTrimLine(AcDbObjectId(), {0, 0, 0}, 2.0), Acad::eNullObjectId);
    AcDbLine* reader = nullptr;
    ASSERT_EQ(acdbOpenObject(reader, line, AcDb::kForRead), Acad::eOk);
    EXPECT_EQ(PelBlockTrimLine(line, {0, 0, 0}, 2.0), Acad::eWasOpenForRead);
    reader->close();
}

TEST_F(BlockTrimTest, BlockThatCannotBeOpenedGivesItsStatusAndNoCommand) {
    block = addScaled({0, 0, 0}, 2.0);
    const AcDbObjectId line = addLine({0, 0, 0}, {10, 0, 0});
    AcDbBlockReference* writer = nullptr;
    ASSERT_EQ(acdbOpenObject(writer, block, AcDb::kForWrite), Acad::eOk);
    forget();
    EXPECT_EQ(PelBlockTrimLine(line, block), Acad::eWasOpenForWrite);
    EXPECT_EQ(events("command"), Lines{});
    writer->close();
    EXPECT_TRUE(sameEnds(endsOf(line), {0, 0, 0}, {10, 0, 0}));
}

/// Takes every selection set that the host has left.
class NoSetLeft {
public:
    NoSetLeft() {
        for (Name name{}; acedSSAdd(nullptr, nullptr, name.data()) == RTNORM;) {
            taken_.push_back(name);
        }
    }
    NoSetLeft(const NoSetLeft&) = delete;
    NoSetLeft& operator=(const NoSetLeft&) = delete;
    ~NoSetLeft() {
        for (const Name& name : taken_) {
            acedSSFree(name.data());
        }
    }

    std::size_t count() const { return taken_.size(); }
    /// How many of them can still be asked.
    std::size_t alive() const {
        return static_cast<std::size_t>(
            std::count_if(taken_.begin(), taken_.end(), [](const Name& name) {
                Adesk::Int32 length = 0;
                return acedSSLength(name.data(), &length) == RTNORM;
            }));
    }

private:
    using Name = std::array<std::remove_extent_t<ads_name>, 2>;
    std::vector<Name> taken_;
};

TEST_F(BlockTrimTest, WithoutASetLeftNothingIsBrokenAndNobodysSetIsFreed) {
    const AcDbObjectId line = addLine({-10, 0, 0}, {10, 0, 0});
    const NoSetLeft sets;
    ASSERT_GT(sets.count(), 100U);
    forget();
    EXPECT_EQ(PelBlockTrimLine(line, {0, 0, 0}, 2.0), Acad::eOk);
    const Lines commands = events("command");
    ASSERT_EQ(commands.size(), 1U);
    EXPECT_TRUE(startsWith(commands[0], "command \"break\" ")) << commands[0];
    EXPECT_NE(commands[0].find("= RTERROR"), std::string::npos) << commands[0];
    EXPECT_TRUE(sameEnds(endsOf(line), {-10, 0, 0}, {10, 0, 0}));
    EXPECT_EQ(sets.alive(), sets.count());
}

TEST_F(BlockTrimTest, ListIsTrimmedOneByOneAndAlwaysWell) {
    const AcDbObjectId a = addLine({0, 0, 0}, {10, 0, 0});
    const AcDbObjectId b = addLine({0, 10, 0}, {0, 0, 0});
    AcDbObjectIdArray lines;
    lines.append(a);
    lines.append(AcDbObjectId());
    lines.append(b);
    EXPECT_EQ(PelBlockTrimLine(lines, {0, 0, 0}, 2.0), Acad::eOk);
    EXPECT_TRUE(sameEnds(endsOf(a), {2, 0, 0}, {10, 0, 0}));
    EXPECT_TRUE(sameEnds(endsOf(b), {0, 10, 0}, {0, 2, 0}));
}

// At the block's geometry.

TEST_F(BlockTrimTest, CurveIsBrokenWhereTheBlocksGeometryMeetsIt) {
    block = addBlockOf({{{-1, -1, 0}, {-1, 1, 0}}, {{1, -1, 0}, {1, 1, 0}}});
    const AcDbObjectId line = addLine({-5, 0, 0}, {5, 0, 0});
    forget();
    EXPECT_EQ(PelBlockTrimCurve(block, line), 1);
    ASSERT_EQ(events("command").size(), 1U);
    const std::string sent = events("command")[0];
    EXPECT_TRUE(sent == "command \"break\" set:1 -1,0,0 1,0,0 = RTNORM" ||
                sent == "command \"break\" set:1 1,0,0 -1,0,0 = RTNORM")
        << sent;
    EXPECT_EQ(events("getvar"), Lines{});
    EXPECT_EQ(alongX(), (std::vector<double>{-5, -1, 1, 5}));
}

TEST_F(BlockTrimTest, BreakAtABlockIsSentInTheUsersCoordinates) {
    AcGeMatrix3d ucs;
    ucs.setCoordSystem({0, 3, 0}, {1, 0, 0}, {0, 1, 0}, {0, 0, 1});
    ASSERT_EQ(acedSetCurrentUCS(ucs), Acad::eOk);
    block = addBlockOf({{{-1, -1, 0}, {-1, 1, 0}}, {{1, -1, 0}, {1, 1, 0}}});
    const AcDbObjectId line = addLine({-5, 0, 0}, {5, 0, 0});
    forget();
    EXPECT_EQ(PelBlockTrimCurve(block, line), 1);
    ASSERT_EQ(events("command").size(), 1U);
    EXPECT_NE(events("command")[0].find(" -1,-3,0 "), std::string::npos);
    EXPECT_EQ(alongX(), (std::vector<double>{-5, -1, 1, 5}));
}

TEST_F(BlockTrimTest, CurveIsMetAsExtended) {
    // The line ends at x = -0.5; extended it meets both sides, so the break is sent.
    block = addBlockOf({{{-1, -1, 0}, {-1, 1, 0}}, {{1, -1, 0}, {1, 1, 0}}});
    const AcDbObjectId line = addLine({-5, 0, 0}, {-0.5, 0, 0});
    forget();
    EXPECT_EQ(PelBlockTrimCurve(block, line), 1);
    EXPECT_EQ(events("command").size(), 1U);
    // The second place counts at the line's end.
    EXPECT_TRUE(sameEnds(endsOf(line), {-5, 0, 0}, {-1, 0, 0}));
}

TEST_F(BlockTrimTest, ThreeMeetingPointsOrNoneLeaveTheCurveWhole) {
    block =
        addBlockOf({{{-1, -1, 0}, {-1, 1, 0}}, {{1, -1, 0}, {1, 1, 0}}, {{2, -1, 0}, {2, 1, 0}}});
    const AcDbObjectId through = addLine({-5, 0, 0}, {5, 0, 0});
    const AcDbObjectId above = addLine({-5, 4, 0}, {5, 4, 0});
    forget();
    EXPECT_EQ(PelBlockTrimCurve(block, through), 0);
    EXPECT_EQ(PelBlockTrimCurve(block, above), 0);
    EXPECT_EQ(events("command"), Lines{});
}

TEST_F(BlockTrimTest, OneMeetingPointLeavesTheCurveWhole) {
    block = addBlockOf({{{-1, -1, 0}, {-1, 1, 0}}});
    const AcDbObjectId line = addLine({-5, 0, 0}, {5, 0, 0});
    forget();
    EXPECT_EQ(PelBlockTrimCurve(block, line), 0);
    EXPECT_EQ(events("command"), Lines{});
    EXPECT_TRUE(sameEnds(endsOf(line), {-5, 0, 0}, {5, 0, 0}));
}

TEST_F(BlockTrimTest, WhatIsNoBlockOrNoCurveIsLeftAlone) {
    block = addScaled({0, 0, 0}, 1.0);
    const AcDbObjectId line = addLine({-5, 0, 0}, {5, 0, 0});
    EXPECT_EQ(PelBlockTrimCurve(line, line), 0);
    EXPECT_EQ(PelBlockTrimCurve(block, block), 0);
}

// All lines at a block.

class TrimAllLineByBlkRefTest : public BlockTrimTest {
protected:
    /// A line that carries data of the application of pipe lines.
    AcDbObjectId addPipeLine(const AcGePoint3d& from, const AcGePoint3d& to,
                             const wchar_t* application = L"管线系统") {
        return drawing.addEntity(new AcDbLine(from, to), {{application, L"1"}});
    }

    void trim() {
        ads_name name;
        ASSERT_EQ(acdbGetAdsName(name, block), Acad::eOk);
        forget();
        PelTrimAllLineByBlkRef(name);
    }
};

TEST_F(TrimAllLineByBlkRefTest, LinesOfThePipeLineApplicationOnTheFenceAreBroken) {
    block = addBlockOf({{{-1, -1, 0}, {-1, 1, 0}}, {{1, -1, 0}, {1, 1, 0}}});
    const AcDbObjectId line = addPipeLine({-5, 0, 0}, {5, 0, 0});
    const AcDbObjectId other = addPipeLine({-5, 0.5, 0}, {5, 0.5, 0}, L"管道系统");
    trim();
    EXPECT_EQ(events("select"), Lines{"select F 1"});
    EXPECT_EQ(entities().size(), 4U);
    EXPECT_TRUE(sameEnds(endsOf(other), {-5, 0.5, 0}, {5, 0.5, 0}));
    const double length = endsOf(line).first.distanceTo(endsOf(line).second);
    EXPECT_DOUBLE_EQ(length, 4.0);
    EXPECT_EQ(events("setvar"), (Lines{"setvar CMDECHO 0", "setvar CMDECHO 1"}));
}

TEST_F(TrimAllLineByBlkRefTest, EveryLineOfTheFenceHasItsTurn) {
    block = addBlockOf({{{-1, -1, 0}, {-1, 1, 0}}, {{1, -1, 0}, {1, 1, 0}}});
    // The first one crosses the fence between the block's two sides.
    const AcDbObjectId between = addPipeLine({0, -5, 0}, {0, 5, 0});
    const AcDbObjectId low = addPipeLine({-5, 0, 0}, {5, 0, 0});
    const AcDbObjectId high = addPipeLine({-5, 0.5, 0}, {5, 0.5, 0});
    trim();
    EXPECT_EQ(events("select"), Lines{"select F 3"});
    EXPECT_TRUE(sameEnds(endsOf(between), {0, -5, 0}, {0, 5, 0}));
    EXPECT_TRUE(sameEnds(endsOf(low), {-5, 0, 0}, {-1, 0, 0}));
    EXPECT_TRUE(sameEnds(endsOf(high), {-5, 0.5, 0}, {-1, 0.5, 0}));
}

TEST_F(TrimAllLineByBlkRefTest, FenceGoesRoundEveryCorner) {
    // Each line cuts one corner off, so that it meets the two sides of the fence there and no
    // other: y = x + 1.5 meets the left side at (-1, 0.5) and the top at (-0.5, 1), and so on.
    block = addBlockOf({{{-1, -1, 0}, {-1, 1, 0}},
                        {{1, -1, 0}, {1, 1, 0}},
                        {{-1, -1, 0}, {1, -1, 0}},
                        {{-1, 1, 0}, {1, 1, 0}}});
    const AcDbObjectId upperLeft = addPipeLine({-3, -1.5, 0}, {2, 3.5, 0});
    const AcDbObjectId lowerLeft = addPipeLine({-3, 1.5, 0}, {2, -3.5, 0});
    const AcDbObjectId lowerRight = addPipeLine({3, 1.5, 0}, {-2, -3.5, 0});
    const AcDbObjectId upperRight = addPipeLine({3, -1.5, 0}, {-2, 3.5, 0});
    trim();
    EXPECT_EQ(events("select"), Lines{"select F 4"});
    EXPECT_TRUE(sameEnds(endsOf(upperLeft), {-3, -1.5, 0}, {-1, 0.5, 0}));
    EXPECT_TRUE(sameEnds(endsOf(lowerLeft), {-3, 1.5, 0}, {-1, -0.5, 0}));
    EXPECT_TRUE(sameEnds(endsOf(lowerRight), {3, 1.5, 0}, {1, -0.5, 0}));
    EXPECT_TRUE(sameEnds(endsOf(upperRight), {3, -1.5, 0}, {1, 0.5, 0}));
}

TEST_F(TrimAllLineByBlkRefTest, FenceIsGivenInTheUsersCoordinates) {
    AcGeMatrix3d ucs;
    ucs.setCoordSystem({0, 3, 0}, {1, 0, 0}, {0, 1, 0}, {0, 0, 1});
    ASSERT_EQ(acedSetCurrentUCS(ucs), Acad::eOk);
    block = addBlockOf({{{-1, -1, 0}, {-1, 1, 0}}, {{1, -1, 0}, {1, 1, 0}}});
    const AcDbObjectId line = addPipeLine({-5, 0, 0}, {5, 0, 0});
    trim();
    EXPECT_EQ(events("select"), Lines{"select F 1"});
    EXPECT_TRUE(sameEnds(endsOf(line), {-5, 0, 0}, {-1, 0, 0}));
}

TEST_F(TrimAllLineByBlkRefTest, LineAwayFromTheFenceStays) {
    block = addBlockOf({{{-1, -1, 0}, {-1, 1, 0}}, {{1, -1, 0}, {1, 1, 0}}});
    const AcDbObjectId line = addPipeLine({-5, 4, 0}, {5, 4, 0});
    trim();
    EXPECT_EQ(events("setvar"), Lines{});
    EXPECT_EQ(events("getvar"), Lines{});
    EXPECT_EQ(entities(), (Ids{block, line}));
}

TEST_F(TrimAllLineByBlkRefTest, WhatIsNoBlockIsLeftAlone) {
    const AcDbObjectId line = addPipeLine({-5, 0, 0}, {5, 0, 0});
    block = line;
    trim();
    EXPECT_TRUE(sameEnds(endsOf(line), {-5, 0, 0}, {5, 0, 0}));
}

} // namespace
} // namespace module_tests
