#include "UtilitiesTest.h"

#include "TwiceMetLine.h"
#include "utilities/BreakLine.h"
#include "utilities/BreakLines.h"

#include <algorithm>
#include <cmath>
#include <fstream>
#include <iterator>
#include <random>

namespace module_tests {
namespace {

std::string bytesOf(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

class BreakLineTest : public UtilitiesTest {
protected:
    AcDbObjectIdArray listOf(const Ids& ids) {
        AcDbObjectIdArray list;
        for (const AcDbObjectId& id : ids) {
            list.append(id);
        }
        return list;
    }

    double lengthOf(const AcDbObjectId& id) {
        const Ends ends = endsOf(id);
        return ends.first.distanceTo(ends.second);
    }
};

TEST_F(BreakLineTest, EmptyListAndOneLineAreLeftAlone) {
    AcDbObjectIdArray none;
    PelBreakLine(none);
    EXPECT_EQ(none.length(), 0);
    AcDbObjectIdArray one = listOf({addLine({0, 0, 0}, {100, 0, 0})});
    PelBreakLine(one);
    EXPECT_EQ(one.length(), 1);
    EXPECT_TRUE(sameEnds(endsOf(one[0]), {0, 0, 0}, {100, 0, 0}));
}

TEST_F(BreakLineTest, LinesThatCrossAreBothBrokenAndAllPiecesEndAtTheCrossing) {
    AcDbObjectIdArray lines =
        listOf({addLine({0, 0, 0}, {100, 0, 0}), addLine({50, -50, 0}, {50, 50, 0})});
    PelBreakLine(lines);
    ASSERT_EQ(lines.length(), 4);
    EXPECT_TRUE(sameEnds(endsOf(lines[0]), {0, 0, 0}, {50, 0, 0}));
    EXPECT_TRUE(sameEnds(endsOf(lines[1]), {50, -50, 0}, {50, 0, 0}));
    // The later line's piece is entered first. Pieces run back from the old end.
    EXPECT_TRUE(sameEnds(endsOf(lines[2]), {50, 50, 0}, {50, 0, 0}));
    EXPECT_TRUE(sameEnds(endsOf(lines[3]), {100, 0, 0}, {50, 0, 0}));
    EXPECT_EQ(entities(), (Ids{lines[0], lines[1], lines[2], lines[3]}));
}

TEST_F(BreakLineTest, PiecesThatCannotBeEnteredStandInTheListAsNullIds) {
    for (const int others : {0, 20}) { // few lines are compared one by one, many by place
        Ids lines = {addLine({0, 0, 0}, {100, 0, 0}), addLine({50, -50, 0}, {50, 50, 0})};
        for (int i = 0; i < others; ++i) {
            lines.push_back(addLine({1000.0 + 30.0 * i, 0, 0}, {1000.0 + 30.0 * i, 50, 0}));
        }
        AcDbObjectIdArray list = listOf(lines);
        // While the space is held open nothing can be added to it.
        AcDbBlockTableRecord* space = nullptr;
        ASSERT_EQ(acdbOpenObject(space, drawing.database().modelSpaceId(), AcDb::kForRead),
                  Acad::eOk);
        PelBreakLine(list);
        space->close();
        lines.push_back(AcDbObjectId());
        lines.push_back(AcDbObjectId());
        EXPECT_EQ(idsOf(list), lines);
        EXPECT_TRUE(sameEnds(endsOf(lines[0]), {0, 0, 0}, {50, 0, 0}));
        EXPECT_TRUE(sameEnds(endsOf(lines[1]), {50, -50, 0}, {50, 0, 0}));
        drawing.startAnew();
    }
}

TEST_F(BreakLineTest, LinesThatMeetAtTheirEndsStayWhole) {
    AcDbObjectIdArray lines =
        listOf({addLine({0, 0, 0}, {100, 0, 0}), addLine({95, -5, 0}, {95, 90, 0})});
    PelBreakLine(lines);
    EXPECT_EQ(lines.length(), 2);
    EXPECT_TRUE(sameEnds(endsOf(lines[0]), {0, 0, 0}, {100, 0, 0}));
    EXPECT_TRUE(sameEnds(endsOf(lines[1]), {95, -5, 0}, {95, 90, 0}));
}

TEST_F(BreakLineTest, LineThatEndsOnAnotherBreaksThatOneAlone) {
    AcDbObjectIdArray lines =
        listOf({addLine({0, 0, 0}, {100, 0, 0}), addLine({91, -90, 0}, {91, 90, 0})});
    PelBreakLine(lines);
    ASSERT_EQ(lines.length(), 3);
    EXPECT_TRUE(sameEnds(endsOf(lines[0]), {0, 0, 0}, {100, 0, 0}));
    EXPECT_TRUE(sameEnds(endsOf(lines[1]), {91, -90, 0}, {91, 0, 0}));
    EXPECT_TRUE(sameEnds(endsOf(lines[2]), {91, 90, 0}, {91, 0, 0}));
}

TEST_F(BreakLineTest, LinesUponOneAnotherStayWholeFarFromTheOriginToo) {
    const double far = 1e7;
    AcDbObjectIdArray lines = listOf(
        {addLine({far, far, 0}, {far + 25, far, 0}),
         addLine({far, std::nextafter(far, 2 * far), 0}, {far + 25, std::nextafter(far, 0.0), 0})});
    PelBreakLine(lines);
    EXPECT_EQ(lines.length(), 2);
}

TEST_F(BreakLineTest, LineThatStopsShortStaysAndTheGapRemains) {
    AcDbObjectIdArray lines =
        listOf({addLine({50, 1, 0}, {50, 90, 0}), addLine({0, 0, 0}, {100, 0, 0})});
    PelBreakLine(lines);
    ASSERT_EQ(lines.length(), 3);
    EXPECT_TRUE(sameEnds(endsOf(lines[0]), {50, 1, 0}, {50, 90, 0}));
    EXPECT_TRUE(sameEnds(endsOf(lines[1]), {0, 0, 0}, {50, 0, 0}));
    EXPECT_TRUE(sameEnds(endsOf(lines[2]), {100, 0, 0}, {50, 0, 0}));
}

TEST_F(BreakLineTest, EarlierLineIsBrokenByALaterOneThatEndsOnIt) {
    AcDbObjectIdArray lines =
        listOf({addLine({91, -90, 0}, {91, 90, 0}), addLine({0, 0, 0}, {100, 0, 0})});
    PelBreakLine(lines);
    ASSERT_EQ(lines.length(), 3);
    EXPECT_TRUE(sameEnds(endsOf(lines[0]), {91, -90, 0}, {91, 0, 0}));
    EXPECT_TRUE(sameEnds(endsOf(lines[1]), {0, 0, 0}, {100, 0, 0}));
    EXPECT_TRUE(sameEnds(endsOf(lines[2]), {91, 90, 0}, {91, 0, 0}));
}

TEST_F(BreakLineTest, EarlierLineIsBrokenByALaterOneThatStopsShort) {
    AcDbObjectIdArray lines =
        listOf({addLine({0, 0, 0}, {100, 0, 0}), addLine({50, 1, 0}, {50, 90, 0})});
    PelBreakLine(lines);
    ASSERT_EQ(lines.length(), 3);
    EXPECT_TRUE(sameEnds(endsOf(lines[0]), {0, 0, 0}, {50, 0, 0}));
    EXPECT_TRUE(sameEnds(endsOf(lines[1]), {50, 1, 0}, {50, 90, 0}));
    EXPECT_TRUE(sameEnds(endsOf(lines[2]), {100, 0, 0}, {50, 0, 0}));
}

TEST_F(BreakLineTest, GapBeyondTheScaledToleranceBreaksNothing) {
    drawing.setDwgScale(0.05); // the tolerance is 0.5
    AcDbObjectIdArray lines =
        listOf({addLine({0, 0, 0}, {100, 0, 0}), addLine({50, 1, 0}, {50, 90, 0})});
    PelBreakLine(lines);
    EXPECT_EQ(lines.length(), 2);
    EXPECT_TRUE(sameEnds(endsOf(lines[0]), {0, 0, 0}, {100, 0, 0}));
}

TEST_F(BreakLineTest, GapWithinALargeScaleIsSeenByWhatLiesNearToo) {
    drawing.setDwgScale(5.0); // the tolerance is 50
    for (const auto mode : {tkvlt::CandidateMode::kPlainScan, tkvlt::CandidateMode::kIndexed}) {
        AcDbObjectIdArray lines =
            listOf({addLine({0, 0, 0}, {1000, 0, 0}), addLine({500, 45, 0}, {500, 900, 0})});
        tkvlt::BreakLines(lines, mode);
        ASSERT_EQ(lines.length(), 3);
        EXPECT_TRUE(sameEnds(endsOf(lines[0]), {0, 0, 0}, {500, 0, 0}));
        EXPECT_TRUE(sameEnds(endsOf(lines[1]), {500, 45, 0}, {500, 900, 0}));
        EXPECT_TRUE(sameEnds(endsOf(lines[2]), {1000, 0, 0}, {500, 0, 0}));
    }
}

// So high up that what rounding may hide is as much as the gap that is allowed.
TEST_F(BreakLineTest, GapFarAboveTheOriginIsSeenByWhatLiesNearToo) {
    constexpr double height = 1e15;
    for (const auto mode : {tkvlt::CandidateMode::kPlainScan, tkvlt::CandidateMode::kIndexed}) {
        AcDbObjectIdArray lines = listOf({addLine({0, 0, height}, {100, 0, height}),
                                          addLine({50, 5, height}, {50, 105, height})});
        tkvlt::BreakLines(lines, mode);
        ASSERT_EQ(lines.length(), 3);
        EXPECT_TRUE(sameEnds(endsOf(lines[0]), {0, 0, height}, {50, 0, height}));
        EXPECT_TRUE(sameEnds(endsOf(lines[1]), {50, 5, height}, {50, 105, height}));
        EXPECT_TRUE(sameEnds(endsOf(lines[2]), {100, 0, height}, {50, 0, height}));
    }
}

// One rises from the origin's height to 1e17, the other falls from there. Coordinates are 16 apart
// there, four of these are noise, and half way the two pass one another at 40.
TEST_F(BreakLineTest, LinesThatRoundingAloneKeepsApartAreSeenByWhatLiesNearToo) {
    constexpr double height = 1e17;
    constexpr double width = 1e8; // steep, but not so that the two are parallel
    for (const auto mode : {tkvlt::CandidateMode::kPlainScan, tkvlt::CandidateMode::kIndexed}) {
        AcDbObjectIdArray lines = listOf(
            {addLine({0, 0, 0}, {width, 0, height}), addLine({0, 40, height}, {width, 40, 0})});
        tkvlt::BreakLines(lines, mode);
        ASSERT_EQ(lines.length(), 4);
        for (int i = 0; i < 4; ++i) {
            // All now end where they were broken, which is on one of the two.
            const AcGePoint3d end = endsOf(lines[i]).second;
            EXPECT_NEAR(end.x, 0.5 * width, 1e-3);
            EXPECT_NEAR(end.z, 0.5 * height, 1e6);
        }
    }
}

TEST_F(BreakLineTest, LinesThatMeetOftenStayWhole) {
    const AcDbObjectId twice =
        drawing.addCurve(new TwiceMetLine(AcGePoint3d(0, 0, 0), AcGePoint3d(100, 0, 0)));
    AcDbObjectIdArray lines = listOf({addLine({50, -50, 0}, {50, 50, 0}), twice});
    PelBreakLine(lines);
    EXPECT_EQ(lines.length(), 2);
    EXPECT_TRUE(sameEnds(endsOf(lines[0]), {50, -50, 0}, {50, 50, 0}));
    EXPECT_TRUE(sameEnds(endsOf(twice), {0, 0, 0}, {100, 0, 0}));
}

TEST_F(BreakLineTest, PiecesAreBrokenAgain) {
    // The first line crosses two others; its far piece, made at x = 30, holds the crossing at 70.
    AcDbObjectIdArray lines =
        listOf({addLine({0, 0, 0}, {100, 0, 0}), addLine({30, -50, 0}, {30, 50, 0}),
                addLine({70, -50, 0}, {70, 50, 0})});
    PelBreakLine(lines);
    // Three lines, two crossings, two new pieces each.
    ASSERT_EQ(lines.length(), 7);
    std::vector<double> alongX;
    for (int i = 0; i < lines.length(); ++i) {
        const Ends ends = endsOf(lines[i]);
        if (ends.first.y == 0.0 && ends.second.y == 0.0) {
            alongX.push_back(std::min(ends.first.x, ends.second.x));
            alongX.push_back(std::max(ends.first.x, ends.second.x));
        }
    }
    std::sort(alongX.begin(), alongX.end());
    EXPECT_EQ(alongX, (std::vector<double>{0, 30, 30, 70, 70, 100}));
}

TEST_F(BreakLineTest, PiecesCarryLayerAndTextsOfTheirLine) {
    const AcDbObjectId layer = drawing.defineLayer(L"管");
    PipeTexts texts;
    texts.diameter = L"300";
    const AcDbObjectId pipe = drawing.addPipe({0, 0, 0}, {100, 0, 0}, texts);
    AcDbLine* opened = nullptr;
    ASSERT_EQ(acdbOpenObject(opened, pipe, AcDb::kForWrite), Acad::eOk);
    opened->setLayer(layer);
    opened->close();
    AcDbObjectIdArray lines = listOf({addLine({50, -50, 0}, {50, 5, 0}), pipe});
    PelBreakLine(lines);
    ASSERT_EQ(lines.length(), 3);
    CString value;
    EXPECT_EQ(GetXdata(lines[2], L"管径", value), 1);
    EXPECT_EQ(utf8(value), "300");
    ASSERT_EQ(acdbOpenObject(opened, lines[2], AcDb::kForRead), Acad::eOk);
    EXPECT_EQ(opened->layerId(), layer);
    opened->close();
}

TEST_F(BreakLineTest, LineThatStandsTwiceCannotBeOpenedTwiceAndTheRestGoesOn) {
    const AcDbObjectId along = addLine({0, 0, 0}, {100, 0, 0});
    AcDbObjectIdArray lines = listOf({along, along, addLine({50, -50, 0}, {50, 50, 0})});
    PelBreakLine(lines);
    // The pair of the line with itself is passed over; then it is broken once by the other one.
    ASSERT_EQ(lines.length(), 5);
    EXPECT_TRUE(sameEnds(endsOf(along), {0, 0, 0}, {50, 0, 0}));
    EXPECT_TRUE(sameEnds(endsOf(lines[2]), {50, -50, 0}, {50, 0, 0}));
}

TEST_F(BreakLineTest, LineThatCannotBeOpenedIsPassedOver) {
    const AcDbObjectId gone = addLine({50, -50, 0}, {50, 50, 0});
    drawing.erase(gone);
    AcDbObjectIdArray lines =
        listOf({gone, addLine({0, 0, 0}, {100, 0, 0}), gone, addLine({30, -50, 0}, {30, 50, 0})});
    PelBreakLine(lines);
    ASSERT_EQ(lines.length(), 6);
    EXPECT_TRUE(sameEnds(endsOf(lines[1]), {0, 0, 0}, {30, 0, 0}));
}

TEST_F(BreakLineTest, WhatIsNoLineIsPassedOverWhereverItStands) {
    for (const std::size_t place : {0U, 1U, 2U}) {
        Ids ids{addLine({0, 0, 0}, {100, 0, 0}), addLine({50, -50, 0}, {50, 50, 0})};
        const AcDbObjectId other = drawing.addPolyline({{20.0, -50.0}, {20.0, 50.0}});
        ids.insert(ids.begin() + static_cast<std::ptrdiff_t>(place), other);
        AcDbObjectIdArray lines = listOf(ids);
        PelBreakLine(lines);
        // The two lines are broken where they cross, and nothing where the polyline crosses.
        ASSERT_EQ(lines.length(), 5);
        EXPECT_NEAR(lengthOf(ids[place == 0 ? 1 : 0]), 50.0, 1e-9);
    }
}

TEST_F(BreakLineTest, WhatIsNoLineIsPassedOverAmongManyLinesToo) {
    Ids ids{drawing.addPolyline({{20.0, -50.0}, {20.0, 50.0}}), addLine({0, 0, 0}, {100, 0, 0}),
            addLine({50, -50, 0}, {50, 50, 0})};
    constexpr int far = 20; // more than are met pair by pair
    for (int i = 0; i < far; ++i) {
        ids.push_back(addLine({0, 1000.0 + 10.0 * i, 0}, {100, 1000.0 + 10.0 * i, 0}));
    }
    AcDbObjectIdArray lines = listOf(ids);
    PelBreakLine(lines);
    ASSERT_EQ(lines.length(), 5 + far);
    EXPECT_NEAR(lengthOf(ids[1]), 50.0, 1e-9);
    EXPECT_NEAR(lengthOf(ids[2]), 50.0, 1e-9);
}

TEST_F(BreakLineTest, BothLinesOfAPairAreOpenWhileThePiecesAreAdded) {
    const AcDbObjectId along = addLine({0, 0, 0}, {100, 0, 0});
    const AcDbObjectId across = addLine({50, -50, 0}, {50, 50, 0});
    AcDbObjectIdArray lines = listOf({along, across});
    forget();
    PelBreakLine(lines);
    const Lines all = events();
    ASSERT_GE(all.size(), 4U);
    // The later line is opened first and closed last.
    EXPECT_EQ(all[0], "open write " + handleOf(across));
    EXPECT_EQ(all[1], "open write " + handleOf(along));
    const auto first = std::find(all.begin(), all.end(), "close " + handleOf(along));
    ASSERT_LT(first + 1, all.end());
    const auto piece = std::find(all.begin(), all.end(), "close " + handleOf(lines[3]));
    ASSERT_NE(piece, all.end());
    EXPECT_LT(piece, first);
    EXPECT_EQ(*(first + 1), "close " + handleOf(across));
}

/// Breaking moves no line and loses none of it.
TEST_F(BreakLineTest, RandomLinesKeepTheirLengthTextsAndPlaces) {
    std::mt19937 random(20260117);
    std::uniform_real_distribution<double> place(0.0, 1000.0);
    for (int round = 0; round < 20; ++round) {
        Ids parents;
        double total = 0.0;
        for (int i = 0; i < 12; ++i) {
            const std::wstring name = L"r" + std::to_wstring(round) + L"-" + std::to_wstring(i);
            PipeTexts texts;
            texts.system = name.c_str();
            parents.push_back(drawing.addPipe({place(random), place(random), 0},
                                              {place(random), place(random), 0}, texts));
            total += lengthOf(parents.back());
        }
        std::vector<Ends> whole;
        for (const AcDbObjectId& id : parents) {
            whole.push_back(endsOf(id));
        }
        AcDbObjectIdArray lines = listOf(parents);
        PelBreakLine(lines);
        EXPECT_GT(lines.length(), 12);
        double sum = 0.0;
        for (int i = 0; i < lines.length(); ++i) {
            sum += lengthOf(lines[i]);
            CString name;
            ASSERT_EQ(GetXdata(lines[i], L"管道系统", name), 1);
            const std::size_t parent = std::stoul(utf8(name).substr(utf8(name).find('-') + 1));
            const AcGeLineSeg3d line(whole[parent].first, whole[parent].second);
            const Ends ends = endsOf(lines[i]);
            EXPECT_LT(line.distanceTo(ends.first), 1e-6);
            EXPECT_LT(line.distanceTo(ends.second), 1e-6);
        }
        EXPECT_NEAR(sum, total, 1e-6);
    }
}

/// The same lines, broken pair by pair and by what lies near: ends and order of all lines.
TEST_F(BreakLineTest, IndexAndPlainScanBreakTheSameLinesInTheSameOrder) {
    std::mt19937 random(11);
    int pieces = 0;
    for (int drawn = 0; drawn < 60; ++drawn) {
        drawing.setDwgScale(drawn % 3 == 0 ? 2.0 : 1.0);
        std::vector<Ends> broken[2];
        std::uniform_int_distribution<int> place(0, 80);
        std::vector<Ends> lines;
        for (int i = 0; i < 12; ++i) {
            const AcGePoint3d from(place(random) * 5.0, place(random) * 5.0, 0);
            lines.push_back({from, {place(random) * 5.0, i % 3 == 0 ? from.y : 5.0 * i, 0}});
        }
        for (const bool plain : {true, false}) {
            Ids ids;
            for (const Ends& line : lines) {
                ids.push_back(addLine(line.first, line.second));
            }
            AcDbObjectIdArray list = listOf(ids);
            tkvlt::BreakLines(list, plain ? tkvlt::CandidateMode::kPlainScan
                                          : tkvlt::CandidateMode::kIndexed);
            for (int i = 0; i < list.length(); ++i) {
                broken[plain ? 0 : 1].push_back(endsOf(list[i]));
            }
        }
        ASSERT_EQ(broken[0].size(), broken[1].size());
        for (std::size_t i = 0; i < broken[0].size(); ++i) {
            ASSERT_EQ(broken[0][i].first, broken[1][i].first);
            ASSERT_EQ(broken[0][i].second, broken[1][i].second);
        }
        pieces += static_cast<int>(broken[0].size() - lines.size());
    }
    EXPECT_GT(pieces, 600);
}

/// After the breaking no two pieces cross farther than 10 from an end of either.
TEST_F(BreakLineTest, NoTwoPiecesCrossInsideThemselves) {
    std::mt19937 random(7);
    std::uniform_real_distribution<double> place(0.0, 1000.0);
    for (int round = 0; round < 20; ++round) {
        Ids parents;
        for (int i = 0; i < 10; ++i) {
            parents.push_back(
                addLine({place(random), place(random), 0}, {place(random), place(random), 0}));
        }
        AcDbObjectIdArray lines = listOf(parents);
        PelBreakLine(lines);
        for (int i = 1; i < lines.length(); ++i) {
            for (int j = 0; j < i; ++j) {
                const Ends a = endsOf(lines[i]);
                const Ends b = endsOf(lines[j]);
                AcGePoint3d at;
                if (!AcGeLineSeg3d(a.first, a.second)
                         .intersectWith(AcGeLineSeg3d(b.first, b.second), at)) {
                    continue;
                }
                const double near =
                    std::min(std::min(at.distanceTo(a.first), at.distanceTo(a.second)),
                             std::min(at.distanceTo(b.first), at.distanceTo(b.second)));
                EXPECT_LT(near, 10.0);
            }
        }
    }
}

/// Breaking all lines of a drawing and undoing it leaves nothing to be written but what was read.
TEST_F(BreakLineTest, UndoOfAGroupGivesADrawingFromAFileBackTagForTag) {
    const std::string path = TKVLT_EXAMPLES_DIR "/town.dxf";
    drawing.openDxfFile(path);
    AcDbObjectIdArray lines;
    for (const AcDbObjectId& id : entities()) {
        if (AcDbLine::cast(host_db::peekObject(id)) != nullptr) {
            lines.append(id);
        }
    }
    const int before = lines.length();
    ASSERT_GT(before, 20);
    ASSERT_EQ(acedCommand(RTSTR, L"Undo", RTSTR, L"Group", 0), RTNORM);
    PelBreakLine(lines);
    ASSERT_EQ(acedCommand(RTSTR, L"Undo", RTSTR, L"End", 0), RTNORM);
    ASSERT_GT(lines.length(), before);
    const std::string broken = drawing.folder().text() + "/broken.dxf";
    const std::string undone = drawing.folder().text() + "/undone.dxf";
    std::string error;
    ASSERT_TRUE(host::saveDocument(acDocManager()->curDocument(), broken, error)) << error;
    ASSERT_EQ(acedCommand(RTSTR, L"Undo", RTSTR, L"1", 0), RTNORM);
    ASSERT_TRUE(host::saveDocument(acDocManager()->curDocument(), undone, error)) << error;
    EXPECT_NE(bytesOf(broken), bytesOf(path));
    EXPECT_EQ(bytesOf(undone), bytesOf(path));
}

TEST_F(BreakLineTest, UndoOfAGroupGivesTheLinesBack) {
    const AcDbObjectId along = addLine({0, 0, 0}, {100, 0, 0});
    const AcDbObjectId across = addLine({50, -50, 0}, {50, 50, 0});
    AcDbObjectIdArray lines = listOf({along, across});
    ASSERT_EQ(acedCommand(RTSTR, L"Undo", RTSTR, L"Group", 0), RTNORM);
    PelBreakLine(lines);
    ASSERT_EQ(acedCommand(RTSTR, L"Undo", RTSTR, L"End", 0), RTNORM);
    ASSERT_EQ(acedCommand(RTSTR, L"Undo", RTSTR, L"1", 0), RTNORM);
    EXPECT_EQ(entities(), (Ids{along, across}));
    EXPECT_TRUE(sameEnds(endsOf(along), {0, 0, 0}, {100, 0, 0}));
    EXPECT_TRUE(sameEnds(endsOf(across), {50, -50, 0}, {50, 50, 0}));
}

} // namespace
} // namespace module_tests
