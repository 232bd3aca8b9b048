// Whole networks, read from DXF text and searched through the module's entry, in all length modes.

#include "module/pressure/PressureMap.h"
#include "module/support/Compare.h"
#include "Siblings.h"
#include "TKVltSearchModule18.h"

#include <memory>
#include <optional>

namespace module_tests {

namespace {

using Names = std::vector<std::string>;

/// A segment as worked out by hand, entities by their names on the map.
struct ExpectedRun {
    Names pipes;
    std::vector<int> flags; ///< of each pipe 1 when it is whole, 0 when it is a piece
    int parent;
    std::vector<int> children;
    int reversed;
    Place begin;
    Place end;
    double length;
    Names valves = {};
    Names meters = {};
    int isArc = 0;
};

AcGePoint3d at(Place place) {
    return {place.x, place.y, 0.0};
}

class PressureNetworkTest : public DrawingTest {
protected:
    /// Reads the map's drawing and searches. Null when the module says no.
    PressureSearchObject* search(const std::string& picked, Place pick, int lengthMode) {
        drawing.setLengthMode(lengthMode);
        return searchIn(map.text(), picked, pick);
    }

    /// The same in a drawing that is read from this text, with the settings as they stand.
    PressureSearchObject* searchIn(const std::string& dxf, const std::string& picked, Place pick) {
        found_.reset();
        drawing.openDxf(dxf);
        AcDbObjectId start = drawing.byHandle(host_text::fromUtf8(map.handle(picked)).c_str());
        AcDbObjectId none;
        SearchObject* object = nullptr;
        const int result = GetSearchInformation(object, start, none, at(pick));
        found_.reset(object);
        EXPECT_EQ(result, object != nullptr ? 1 : 0);
        if (object == nullptr) {
            return nullptr;
        }
        EXPECT_STREQ(object->GetRuntimeClass()->m_lpszClassName, "PressureSearchObject");
        return static_cast<PressureSearchObject*>(object);
    }

    void expectRuns(const std::vector<ExpectedRun>& expected) {
        ASSERT_NE(found_, nullptr);
        auto& network = static_cast<PressureSearchObject&>(*found_);
        EXPECT_EQ(network.rootSeg, 0);
        ASSERT_EQ(network.segs.GetSize(), static_cast<INT_PTR>(expected.size()));
        for (std::size_t i = 0; i < expected.size(); ++i) {
            SCOPED_TRACE("segment " + std::to_string(i));
            expectRun(network.segs[static_cast<INT_PTR>(i)], expected[i]);
        }
    }

    void expectHeights(int index, double begin, double end) {
        const PressureSeg& seg = static_cast<PressureSearchObject&>(*found_).segs[index];
        EXPECT_EQ(seg.startElevation, begin) << "segment " << index;
        EXPECT_EQ(seg.endElevation, end) << "segment " << index;
    }

    Names namesOf(const AcArray<AcDbObjectId>& ids) const {
        Names names;
        for (const AcDbObjectId& id : idsOf(ids)) {
            ACHAR digits[17]; // sixteen and the end mark
            id.handle().getIntoAsciiBuffer(digits);
            names.push_back(map.name(host_text::toUtf8(digits)));
        }
        return names;
    }

    PressureMap map;

private:
    void expectRun(PressureSeg& seg, const ExpectedRun& want) const {
        EXPECT_EQ(namesOf(seg.pipeIds), want.pipes);
        EXPECT_EQ(intsOf(seg.orientationFlags), want.flags);
        EXPECT_EQ(seg.reversed, want.reversed);
        EXPECT_EQ(seg.isArc, want.isArc);
        EXPECT_EQ(seg.parent, want.parent);
        EXPECT_EQ(intsOf(seg.children), want.children);
        EXPECT_TRUE(samePoint(seg.GetBeginPoint(), at(want.begin)));
        EXPECT_TRUE(samePoint(seg.GetSearchPoint(), at(want.end)));
        EXPECT_NEAR(seg.GetLength(), want.length, 1e-9);
        EXPECT_EQ(namesOf(seg.valveIds), want.valves);
        EXPECT_EQ(namesOf(seg.meterIds), want.meters);
        EXPECT_EQ(utf8(seg.systemName), "给水");
    }

    std::unique_ptr<SearchObject> found_;
};

/// The street of the first tests.
///
///                 o WE (10, 18.9)
///                 | B1b
///   y = 20  T3 ---|---------+----V3------K3-----V4-+ T2
///                 o WB (10, 15.45)                  \  arc A over (50, 10), K2
///                 | B1, K1                          /
///   P ====V1======+==========+======V2=============+  M
///   0            10         25 | B2               40
///                              v (25, -12)
void drawStreet(PressureMap& map) {
    map.main("M", {0, 0}, {40, 0},
             {.startElevation = "10", .endElevation = "8", .diameter = "200"});
    map.main("B1", {10, 0}, {10, 15}, {.startElevation = "7", .endElevation = "7.5"});
    map.main("B2", {25, -12}, {25, 0}, {.startElevation = "5", .endElevation = "6"});
    map.main("A", {40, 0}, {40, 20}, {.bulge = 1.0});
    map.main("T2", {40, 20}, {20, 20}, {.startElevation = "3", .endElevation = "2"});
    map.main("T3", {20, 20}, {5, 20}, {.startElevation = "2", .endElevation = "1"});
    map.main("B1b", {10, 15.8}, {10, 18.5});
    map.well("WB", {10, 15.45});
    map.well("WE", {10, 18.9});
    map.valve("V3", {8, 20});
    map.valve("V1", {5, 0}, "0.6");
    map.valve("V2", {30, 0.2}, "0.6");
    map.valve("V4", {38, 20});
    map.meter("K1", {10, 8});
    map.meter("K2", {50, 10});
    map.meter("K3", {32, 20});
}

/// The runs of the street, where B1 with what continues it ends at `end`.
std::vector<ExpectedRun> streetRuns(double end) {
    return {{{"M"}, {0}, -1, {1, 2}, 0, {0, 0}, {10, 0}, 10, {"V1"}},
            {{"B1", "B1b"}, {1, 1}, 0, {}, 0, {10, 0}, {10, end}, end, {}, {"K1"}},
            {{"M"}, {0}, 0, {3, 4}, 0, {10, 0}, {25, 0}, 15},
            {{"B2"}, {1}, 2, {}, 1, {25, 0}, {25, -12}, 12},
            {{"M"}, {0}, 2, {5}, 0, {25, 0}, {40, 0}, 15, {"V2"}},
            {{"A"}, {1}, 4, {6}, 0, {40, 0}, {40, 20}, 31.41592653589793, {}, {"K2"}, 1},
            {{"T2", "T3"}, {1, 1}, 5, {}, 0, {40, 20}, {5, 20}, 35, {"V4", "V3"}, {"K3"}}};
}

} // namespace

/// In length mode 0 the branch ends where it was drawn.
TEST_F(PressureNetworkTest, StreetInLengthModeZero) {
    drawStreet(map);
    ASSERT_NE(search("M", {0, 0}, 0), nullptr);
    expectRuns(streetRuns(18.5));
}

/// In the other modes it ends in the middle of its well; on the joint the pipes meet in theirs.
TEST_F(PressureNetworkTest, StreetInTheOtherLengthModes) {
    drawStreet(map);
    for (const int mode : {1, 2}) {
        SCOPED_TRACE(mode);
        ASSERT_NE(search("M", {0, 0}, mode), nullptr);
        expectRuns(streetRuns(18.9));
    }
}

/// Pieces have the heights of the whole main: 10 at its start, 8 at its end, by which of the two is
/// nearer to where the walk comes in.
TEST_F(PressureNetworkTest, HeightsOfTheStreet) {
    drawStreet(map);
    for (const int mode : {0, 1, 2}) {
        ASSERT_NE(search("M", {0, 0}, mode), nullptr);
        expectHeights(0, 10, 8);
        expectHeights(1, 7, 7.5);
        expectHeights(2, 10, 8);
        expectHeights(3, 6, 5);
        expectHeights(4, 8, 10);
        expectHeights(6, 3, 2);
    }
}

/// From the other end of the main, which is the middle of the street: the third piece is the root,
/// and the arc behind it stays outside.
TEST_F(PressureNetworkTest, StreetFromTheMiddle) {
    drawStreet(map);
    ASSERT_NE(search("M", {40, 0}, 0), nullptr);
    expectRuns({{{"M"}, {0}, -1, {1, 2}, 1, {40, 0}, {25, 0}, 15, {"V2"}},
                {{"B2"}, {1}, 0, {}, 1, {25, 0}, {25, -12}, 12},
                {{"M"}, {0}, 0, {3, 4}, 1, {25, 0}, {10, 0}, 15},
                {{"B1", "B1b"}, {1, 1}, 2, {}, 0, {10, 0}, {10, 18.5}, 18.5, {}, {"K1"}},
                {{"M"}, {0}, 2, {}, 1, {10, 0}, {0, 0}, 10, {"V1"}}});
}

/// The run of T3 and T2, drawn against the walk, is turned round: what the walk goes on to is what
/// hangs on the picked end, which is nothing. The arc is not reached.
TEST_F(PressureNetworkTest, StreetFromItsFarEndIsTurnedRound) {
    drawStreet(map);
    for (const int mode : {0, 1, 2}) {
        ASSERT_NE(search("T3", {5, 20}, mode), nullptr);
        expectRuns(
            {{{"T3", "T2"}, {1, 1}, -1, {}, 1, {40, 20}, {5, 20}, 35, {"V4", "V3"}, {"K3"}}});
    }
}

/// Two mains that cross are one network.
///
///            | N
///   P -------+-----+ E
///            | S
TEST_F(PressureNetworkTest, Crossing) {
    map.main("X", {0, 0}, {20, 0});
    map.main("Y", {10, -10}, {10, 10});
    for (const int mode : {0, 1, 2}) {
        ASSERT_NE(search("X", {0, 0}, mode), nullptr);
        expectRuns({{{"X"}, {0}, -1, {1, 2, 3}, 0, {0, 0}, {10, 0}, 10},
                    {{"Y"}, {0}, 0, {}, 1, {10, 0}, {10, -10}, 10},
                    {{"Y"}, {0}, 0, {}, 0, {10, 0}, {10, 10}, 10},
                    {{"X"}, {0}, 0, {}, 0, {10, 0}, {20, 0}, 10}});
    }
}

namespace {

/// Three pipes that stop short of the centre of a well of 2 m. In mode 0, seen from the end of P,
/// N is 1.45 away and S 1.64, where 1 + 0.4 are allowed; in the other modes P and N, less than 1.1
/// from the centre, are moved there, and S is 1.3 away from it.
///
///          | N ends 1.05 above the centre
///   P -----o
///          | S ends 1.3 below it
void drawJunction(PressureMap& map) {
    map.main("P", {0, 0}, {9.0, 0});
    map.main("N", {10, 1.05}, {10, 10});
    map.main("S", {10, -10}, {10, -1.3});
    map.well("W", {10, 0}, "2");
}

/// The same text with a record in it that says how lengths are reckoned in this drawing.
std::string withLengthMode(const std::string& dxf, int mode) {
    const std::string records = "0\nSECTION\n2\nOBJECTS\n"
                                "0\nDICTIONARY\n5\nE0\n100\nAcDbDictionary\n"
                                "3\nTKVLT_DRAWING_SETTINGS\n350\nE1\n"
                                "0\nDICTIONARY\n5\nE1\n330\nE0\n100\nAcDbDictionary\n"
                                "3\nPipeCalLongType\n360\nE2\n"
                                "0\nXRECORD\n5\nE2\n330\nE1\n100\nAcDbXrecord\n280\n1\n8\n" +
                                std::to_string(mode) + "\n0\nENDSEC\n";
    std::string text = dxf;
    text.insert(text.rfind("0\nEOF\n"), records);
    return text;
}

} // namespace

TEST_F(PressureNetworkTest, LengthModeMayStandInTheDrawing) {
    drawJunction(map);
    siblings::setDrawingSettings({.dwgScale = 1.0,
                                  .drawScale = 1000.0,
                                  .pipeBreakDist = 0.1,
                                  .pipeCalLongType = std::nullopt});
    for (const int mode : {0, 1, 2}) {
        const PressureSearchObject* network =
            searchIn(withLengthMode(map.text(), mode), "P", {0, 0});
        ASSERT_NE(network, nullptr);
        EXPECT_EQ(network->segs.GetSize(), mode == 0 ? 1 : 3) << mode;
        EXPECT_EQ(network->segs[0].lengthMode, mode);
    }
}

TEST_F(PressureNetworkTest, JunctionInAWell) {
    drawJunction(map);
    ASSERT_NE(search("P", {0, 0}, 0), nullptr);
    expectRuns({{{"P"}, {1}, -1, {}, 0, {0, 0}, {9, 0}, 9}});
    for (const int mode : {1, 2}) {
        ASSERT_NE(search("P", {0, 0}, mode), nullptr);
        expectRuns({{{"P"}, {1}, -1, {1, 2}, 0, {0, 0}, {10, 0}, 10},
                    {{"N"}, {1}, 0, {}, 0, {10, 0}, {10, 10}, 10},
                    {{"S"}, {1}, 0, {}, 1, {10, -1.3}, {10, -10}, 8.7}});
    }
}

/// The half circle about (0, 0) from (10, 0) with a branch: its pieces are measured the long way
/// round, 15 pi each, and the meter at (0, -10), where nothing is drawn, is taken.
///
///             | B
///          .--+--.
///   E ----(       ) P
///             K
TEST_F(PressureNetworkTest, BranchOnAnArc) {
    map.main("E", {-10, 0}, {-30, 0});
    map.main("A", {10, 0}, {-10, 0}, {.bulge = 1.0});
    map.main("B", {0, 10}, {0, 20});
    map.meter("K", {0, -10});
    const double longWay = 47.12388980384690;
    for (const int mode : {0, 1, 2}) {
        ASSERT_NE(search("A", {10, 0}, mode), nullptr);
        expectRuns({{{"A"}, {0}, -1, {1, 2}, 0, {10, 0}, {0, 10}, longWay, {}, {"K"}, 1},
                    {{"B"}, {1}, 0, {}, 0, {0, 10}, {0, 20}, 10},
                    {{"A"}, {0}, 0, {3}, 0, {0, 10}, {-10, 0}, longWay, {}, {}, 1},
                    {{"E"}, {1}, 2, {}, 0, {-10, 0}, {-30, 0}, 20}});
    }
}

/// The same with E behind the arc in the drawing. The pieces of the first cut are (10, 0)-(0, 10)
/// and (0, 10)-(-10, 0); E meets the first of them, which sweeps over its end, and cuts it. In the
/// pool stand then
///   B, E, (0, 10)-(-10, 0) swept from 90 to 360 degrees,
///   (10, 0)-(-10, 0) swept from 0 to 180, (-10, 0)-(0, 10) swept from 180 to 0.
/// All three pieces come to (10, 0), where the pick is, so the first in the pool is the root. It
/// begins at the top, and from (-10, 0) the walk goes on to E and to the two others; B hangs on the
/// last. They end at (-10, 0), (-30, 0), (10, 0), (0, 10) and (0, 20), all apart.
TEST_F(PressureNetworkTest, BranchOnAnArcThatIsContinuedByALaterPipe) {
    map.main("A", {10, 0}, {-10, 0}, {.bulge = 1.0});
    map.main("B", {0, 10}, {0, 20});
    map.main("E", {-10, 0}, {-30, 0});
    const double longWay = 47.12388980384690;
    const double half = 31.41592653589793;
    for (const int mode : {0, 1, 2}) {
        ASSERT_NE(search("A", {10, 0}, mode), nullptr);
        expectRuns({{{"A"}, {0}, -1, {1, 2, 3}, 0, {0, 10}, {-10, 0}, longWay, {}, {}, 1},
                    {{"E"}, {1}, 0, {}, 0, {-10, 0}, {-30, 0}, 20},
                    {{"A"}, {0}, 0, {}, 1, {-10, 0}, {10, 0}, half, {}, {}, 1},
                    {{"A"}, {0}, 0, {4}, 0, {-10, 0}, {0, 10}, half, {}, {}, 1},
                    {{"B"}, {1}, 3, {}, 0, {0, 10}, {0, 20}, 10}});
    }
}

TEST_F(PressureNetworkTest, RingOnATailIsRefused) {
    map.main("tail", {-10, 0}, {0, 0});
    map.main("south", {0, 0}, {10, 0});
    map.main("east", {10, 0}, {10, 10});
    map.main("north", {10, 10}, {0, 10});
    map.main("west", {0, 10}, {0, 0});
    for (const int mode : {0, 1, 2}) {
        EXPECT_EQ(search("tail", {-10, 0}, mode), nullptr);
    }
}

TEST_F(PressureNetworkTest, RingWithThePickInItIsAChain) {
    map.main("south", {0, 0}, {10, 0});
    map.main("east", {10, 0}, {10, 10});
    map.main("north", {10, 10}, {0, 10});
    map.main("west", {0, 10}, {0, 0});
    for (const int mode : {0, 1, 2}) {
        ASSERT_NE(search("south", {0, 0}, mode), nullptr);
        expectRuns({{{"south"}, {1}, -1, {1}, 0, {0, 0}, {10, 0}, 10},
                    {{"east"}, {1}, 0, {2}, 0, {10, 0}, {10, 10}, 10},
                    {{"north"}, {1}, 1, {3}, 0, {10, 10}, {0, 10}, 10},
                    {{"west"}, {1}, 2, {}, 0, {0, 10}, {0, 0}, 10}});
    }
}

/// Pipes of another system cross, touch and continue, and are not there.
TEST_F(PressureNetworkTest, OtherSystemsDoNotMatter) {
    map.main("M", {0, 0}, {20, 0});
    map.pipe("sewer across", {10, -5}, {10, 5});
    map.pipe("sewer on", {20, 0}, {30, 0});
    map.main("N", {20, 0}, {20, 10});
    for (const int mode : {0, 1, 2}) {
        ASSERT_NE(search("M", {0, 0}, mode), nullptr);
        expectRuns({{{"M"}, {1}, -1, {1}, 0, {0, 0}, {20, 0}, 20},
                    {{"N"}, {1}, 0, {}, 0, {20, 0}, {20, 10}, 10}});
    }
}

} // namespace module_tests
