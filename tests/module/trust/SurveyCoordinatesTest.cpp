// Drawings laid out in the coordinates of a real survey, with seven digits before the point: where
// distances lie a millimetre or half of one from a limit, the same comes out as at the origin.
//
// At 3,456,789.123 a double has a step of 4.7e-10, at 9,999,999.999 one of 1.9e-9, far below half a
// millimetre. Places and lengths are those at the origin within a few such steps.

#include "module/networks/NetworkDump.h"
#include "module/trust/BothWays.h"

namespace module_tests {
namespace {

constexpr double kSteps = 2e-8;

const AcGeVector3d kSurveys[] = {{3456789.123, 489123.456, 0.0},
                                 {489123.456, 3456789.123, 12.345},
                                 {-3456789.123, 9999999.999, 1234.567}};

/// A sewer at a place of its own. The well reach is 0.505, the join distance 0.44, a tank's margin
/// 0.001.
///
///  T []--p7-- C o --p5--   --p6-- o D      T is met half a millimetre beyond its box; between p5
///              |p3                          and p6 there is a millimetre too much
///   A o-p1--p2-o B B2                       B2 merges into B, which is then 1.91 wide: p3 begins a
///              |p4                          millimetre within that, p4 a millimetre beyond
///              o E
class SurveySewer {
public:
    SurveySewer(DrawingBuilder& drawing, const AcGeVector3d& offset)
        : drawing_(drawing), offset_(offset) {
        wells = {well(0, 0),      well(20, 0),  well(20.9, 0),
                 well(20.45, 40), well(60, 40), well(20.45, -40)};
        tank = drawing.addTank(at(-14, 38), at(-10.0005, 42));
        pipes = {pipe(0.5, 0, 10, 0, L"5", L"4.9"),
                 pipe(10.4399, 0, 19.5, 0, L"4.9", L"4.8"),
                 pipe(20.45, 1.909, 20.45, 39.496, L"4.7", L"4"),
                 pipe(20.45, -1.911, 20.45, -39.5, L"4.7", L"4"),
                 pipe(20.95, 40, 39.5, 40, L"4", L"3"),
                 pipe(39.941, 40, 59.5, 40, L"3", L"2"),
                 pipe(19.95, 40, -10, 40, L"3.9", L"3")};
    }

    AcGePoint3d at(double x, double y) const { return AcGePoint3d(x, y, 0) + offset_; }

    Ids wells;
    AcDbObjectId tank;
    Ids pipes;

private:
    AcDbObjectId well(double x, double y) { return drawing_.addWell(at(x, y)); }
    AcDbObjectId pipe(double x1, double y1, double x2, double y2, const wchar_t* start,
                      const wchar_t* end) {
        return drawing_.addPipe(
            at(x1, y1), at(x2, y2),
            {.diameter = L"300", .flow = L"SE", .startElevation = start, .endElevation = end});
    }

    DrawingBuilder& drawing_;
    AcGeVector3d offset_;
};

using SurveyTest = DrawingTest;

/// What is worked out by hand at the place of the sewer.
void expectSewer(GravitySearchObject& network, const SurveySewer& sewer) {
    ASSERT_EQ(network.wells.GetSize(), 4);
    ASSERT_EQ(network.segs.GetSize(), 3);
    EXPECT_TRUE(samePoint(network.wells[0].nodePoint, sewer.at(0, 0), kSteps));
    EXPECT_EQ(idsOf(network.wells[1].mergedEntities), Ids{sewer.wells[2]});
    // Midway between B and B2; half of the distance and both radii.
    EXPECT_TRUE(samePoint(network.wells[1].nodePoint, sewer.at(20.45, 0), kSteps));
    EXPECT_NEAR(network.wells[1].nodeRadius, 0.95, kSteps);
    EXPECT_EQ(network.wells[2].nodeEntity, sewer.wells[3]);
    EXPECT_EQ(network.wells[3].nodeEntity, sewer.tank);
    EXPECT_EQ(idsOf(network.segs[0].pipeIds), (Ids{sewer.pipes[0], sewer.pipes[1]}));
    EXPECT_NEAR(network.segs[0].length, 9.5 + 9.0601, kSteps);
    EXPECT_EQ(idsOf(network.segs[1].pipeIds), Ids{sewer.pipes[2]});
    EXPECT_NEAR(network.segs[1].length, 37.587, kSteps);
    EXPECT_EQ(idsOf(network.segs[2].pipeIds), Ids{sewer.pipes[6]});
    EXPECT_EQ(intsOf(network.pathWells), (std::vector<int>{3, 2, 1, 0}));
}

TEST_F(SurveyTest, ASewerIsTheSameTree) {
    const SurveySewer sewer(drawing, {});
    GravitySearchObject atOrigin;
    ASSERT_EQ(searchSewer(atOrigin, sewer.wells[0], sewer.tank), 1);
    expectSewer(atOrigin, sewer);
    const std::string graph = dumpGraph(atOrigin);
    for (const AcGeVector3d& survey : kSurveys) {
        SCOPED_TRACE(survey.x);
        drawing.startAnew();
        const SurveySewer moved(drawing, survey);
        GravitySearchObject network;
        ASSERT_EQ(searchSewer(network, moved.wells[0], moved.tank), 1);
        expectSewer(network, moved);
        EXPECT_EQ(dumpGraph(network), graph);
    }
}

/// For every pipe the result of its stretch, its pipes, and the ends that it comes to.
std::string stretchesOf(const SurveySewer& sewer) {
    std::string text;
    AcDbObjectIdArray all;
    for (const AcDbObjectId& pipe : sewer.pipes) {
        Seg seg;
        text += std::to_string(GetSingleSeg(seg, pipe)) + ":";
        for (const AcDbObjectId& id : idsOf(seg.gravity.pipeIds)) {
            text += " " + std::to_string(id.handle().low());
        }
        text += " from " + std::to_string(seg.gravity.startEntity.handle().low()) + " to " +
                std::to_string(seg.gravity.endEntity.handle().low()) + "\n";
        all.append(pipe);
    }
    CArray<Seg, Seg&> segs;
    EXPECT_EQ(GetSegsForCollideTest(segs, all, 1), 1);
    return text + std::to_string(segs.GetSize());
}

TEST_F(SurveyTest, StretchesAreTheSame) {
    const SurveySewer sewer(drawing, {});
    const std::string atOrigin = stretchesOf(sewer);
    // Seven pipes; p1 and p2 are one stretch. The others are alone, p3 to p6 with an open end.
    EXPECT_EQ(atOrigin.back(), '6');
    for (const AcGeVector3d& survey : kSurveys) {
        drawing.startAnew();
        EXPECT_EQ(stretchesOf(SurveySewer(drawing, survey)), atOrigin) << survey.x;
    }
}

TEST_F(SurveyTest, LoweringPathAndDeletingAreTheSame) {
    for (const AcGeVector3d& survey : kSurveys) {
        SCOPED_TRACE(survey.x);
        drawing.startAnew();
        const SurveySewer sewer(drawing, survey);
        // The stretch of p1 ends at A, which is reached through its start; from there the water
        // runs on over the same stretch, whose heights of 5 and 4.9 sink by 0.9 to 4.1 and 4. The
        // next limit is 4.1: p3, 4.7 and 4, has its lower height below that.
        ASSERT_EQ(LowerHeightForCollideTest(sewer.pipes[0], 1.0), 1);
        EXPECT_EQ(textOf(sewer.pipes[0], L"起点标高"), L"4");
        EXPECT_EQ(textOf(sewer.pipes[0], L"终点标高"), L"4.1");
        EXPECT_EQ(textOf(sewer.pipes[1], L"起点标高"), L"4");
        EXPECT_EQ(textOf(sewer.pipes[1], L"终点标高"), L"4.1");
        EXPECT_EQ(textOf(sewer.pipes[2], L"起点标高"), L"4.7");

        GravitySearchObject network;
        ASSERT_EQ(searchSewer(network, sewer.wells[0]), 1);
        GravitySearchObject* found = &network;
        AcDbObjectId target = sewer.wells[3];
        EXPECT_EQ(FindGravityPath(found, target), 1);
        EXPECT_EQ(intsOf(network.pathWells), (std::vector<int>{2, 1, 0}));
        EXPECT_EQ(DeleteSeg(found, 1), 1);
        EXPECT_EQ(intsOf(network.pathWells), (std::vector<int>{1, 0}));
        // What led from C to the tank now begins where p3 did, at the node of B.
        EXPECT_EQ(network.segs[1].startWell, 1);
        EXPECT_TRUE(samePoint(network.segs[1].startPoint, sewer.at(20.45, 0), kSteps));
    }
}

/// A main at a place of its own: m1 and m2 cross, m3 begins a millimetre within the reach of 0.4 of
/// m1, m4 two millimetres beyond that of m3. The meter lies half a tenth of a millimetre off the
/// margin beside m1, inside, and the valve one tenth outside.
class SurveyMain {
public:
    SurveyMain(DrawingBuilder& drawing, const AcGeVector3d& offset) : offset_(offset) {
        const PipeTexts supply{.system = kSupply};
        pipes = {drawing.addPipe(at(0, 0), at(60, 0), supply),
                 drawing.addPipe(at(30, -20), at(30, 20), supply),
                 drawing.addPipe(at(60.399, 0), at(90, 0), supply),
                 drawing.addPipe(at(90.402, 0), at(120, 0), supply)};
        meter = fitting(drawing, at(45, 0.50005), L"VLT_WELL_15");
        valve = fitting(drawing, at(15, 0.5002), L"VLT_WELL_05");
    }

    AcGePoint3d at(double x, double y) const { return AcGePoint3d(x, y, 0) + offset_; }

    Ids pipes;
    AcDbObjectId meter;
    AcDbObjectId valve;

private:
    static AcDbObjectId fitting(DrawingBuilder& drawing, const AcGePoint3d& at,
                                const wchar_t* name) {
        return drawing.addBlock(at, name, {{L"管井系统", kSupply}, {L"井的直径", L"1"}});
    }

    AcGeVector3d offset_;
};

/// The first half of m1; on its end the halves of m2 and the other half of m1, which m3 continues.
void expectMain(PressureSegs& segs, const SurveyMain& main) {
    ASSERT_EQ(segs.GetSize(), 4);
    EXPECT_EQ(idsOf(segs[0].pipeIds), Ids{main.pipes[0]});
    EXPECT_EQ(intsOf(segs[0].children), (std::vector<int>{1, 2, 3}));
    EXPECT_TRUE(samePoint(segs[0].endPoint, main.at(30, 0), kSteps));
    EXPECT_EQ(idsOf(segs[1].pipeIds), Ids{main.pipes[1]});
    EXPECT_EQ(idsOf(segs[2].pipeIds), Ids{main.pipes[1]});
    EXPECT_EQ(idsOf(segs[3].pipeIds), (Ids{main.pipes[0], main.pipes[2]}));
    EXPECT_TRUE(samePoint(segs[3].endPoint, main.at(90, 0), kSteps));
    EXPECT_EQ(idsOf(segs[3].meterIds), Ids{main.meter});
    EXPECT_TRUE(segs[0].valveIds.isEmpty());
}

TEST_F(SurveyTest, AMainIsTheSameTree) {
    const SurveyMain main(drawing, {});
    PressureSegs atOrigin;
    ASSERT_EQ(searchMain(atOrigin, main.pipes[0], main.at(0, 0)), 1);
    expectMain(atOrigin, main);
    const std::string graph = graphOf(atOrigin);
    for (const AcGeVector3d& survey : kSurveys) {
        SCOPED_TRACE(survey.x);
        drawing.startAnew();
        const SurveyMain moved(drawing, survey);
        PressureSegs segs;
        ASSERT_EQ(searchMain(segs, moved.pipes[0], moved.at(0, 0)), 1);
        expectMain(segs, moved);
        EXPECT_EQ(graphOf(segs), graph);
    }
}

/// The lines of a list, their ends taken back to the origin.
std::vector<AcGePoint3d> endsOf(const AcDbObjectIdArray& lines, const AcGeVector3d& offset) {
    std::vector<AcGePoint3d> ends;
    for (int i = 0; i < lines.length(); ++i) {
        AcDbLine* line = nullptr;
        EXPECT_EQ(acdbOpenObject(line, lines[i], AcDb::kForRead), Acad::eOk);
        ends.push_back(line->startPoint() - offset);
        ends.push_back(line->endPoint() - offset);
        line->close();
    }
    return ends;
}

TEST_F(SurveyTest, LinesAreBrokenAtTheSamePlaces) {
    // One line, another across its middle, and a third that stops a millimetre short of the second.
    // The second is met first: its rest, from its old end back to the crossing, comes before that
    // of the first. The rest is then broken before the third, so that the last piece runs from the
    // crossing, which was its line's end, back to there.
    const std::vector<AcGePoint3d> expected{
        {0, 0, 0},   {50, 0, 0},  {50, -60, 0}, {50, 0, 0}, {90, 30, 0}, {50.001, 30, 0},
        {50, 60, 0}, {50, 30, 0}, {100, 0, 0},  {50, 0, 0}, {50, 0, 0},  {50, 30, 0}};
    for (const AcGeVector3d& survey : kSurveys) {
        SCOPED_TRACE(survey.x);
        drawing.startAnew();
        AcDbObjectIdArray lines;
        const auto add = [&](double x1, double y1, double x2, double y2) {
            lines.append(drawing.addEntity(
                new AcDbLine(AcGePoint3d(x1, y1, 0) + survey, AcGePoint3d(x2, y2, 0) + survey)));
        };
        add(0, 0, 100, 0);
        add(50, -60, 50, 60);
        add(90, 30, 50.001, 30);
        PelBreakLine(lines);
        const std::vector<AcGePoint3d> ends = endsOf(lines, survey);
        ASSERT_EQ(ends.size(), expected.size());
        for (std::size_t k = 0; k < ends.size(); ++k) {
            EXPECT_TRUE(samePoint(ends[k], expected[k], kSteps)) << k;
        }
    }
}

} // namespace
} // namespace module_tests
