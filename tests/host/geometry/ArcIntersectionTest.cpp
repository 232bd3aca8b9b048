#include "geometry/AcGeCircArc3d.h"
#include "geometry/AcGeLineSeg3d.h"

#include "Near.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

using geometry_test::near;
using geometry_test::pi;
using geometry_test::same;

const AcGeVector3d up(0.0, 0.0, 1.0);
const AcGePoint3d untouched(99.0, 99.0, 99.0);

/// What an intersection gave.
struct Meeting {
    Adesk::Boolean result = -1;
    int n = -1;
    AcGePoint3d p1 = untouched;
    AcGePoint3d p2 = untouched;
};

template<class Other>
Meeting meet(const AcGeCircArc3d& arc, const Other& other, const AcGeTol& tol = AcGeTol()) {
    Meeting meeting;
    meeting.result = arc.intersectWith(other, meeting.n, meeting.p1, meeting.p2, tol);
    return meeting;
}

void expectNone(const Meeting& meeting) {
    EXPECT_EQ(meeting.result, 0);
    EXPECT_EQ(meeting.n, 0);
    EXPECT_TRUE(same(meeting.p1, untouched)) << "nothing else is written";
    EXPECT_TRUE(same(meeting.p2, untouched)) << "nothing else is written";
}

void expectOne(const Meeting& meeting, const AcGePoint3d& place, double allowed = 1.0e-12) {
    EXPECT_EQ(meeting.result, 1);
    ASSERT_EQ(meeting.n, 1);
    EXPECT_TRUE(near(meeting.p1, place, allowed));
    EXPECT_TRUE(same(meeting.p2, untouched)) << "one place only";
}

void expectTwo(const Meeting& meeting, const AcGePoint3d& first, const AcGePoint3d& second) {
    EXPECT_EQ(meeting.result, 1);
    ASSERT_EQ(meeting.n, 2);
    EXPECT_TRUE(near(meeting.p1, first));
    EXPECT_TRUE(near(meeting.p2, second));
}

AcGeLineSeg3d segment(double x1, double y1, double x2, double y2) {
    return {AcGePoint3d(x1, y1, 0.0), AcGePoint3d(x2, y2, 0.0)};
}

AcGeCircArc3d circle(double x, double y, double radius) {
    return {{x, y, 0.0}, up, radius};
}

/// Counter-clockwise, angles in degrees.
AcGeCircArc3d arc(double x, double y, double radius, double from, double to) {
    return {{x, y, 0.0}, up, AcGeVector3d::kXAxis, radius, from * pi / 180.0, to * pi / 180.0};
}

TEST(ArcWithLine, CutsTwiceInTheOrderAlongTheArc) {
    // The line y = 3 cuts the circle of radius 5 at x = -4 and 4.
    expectTwo(meet(circle(0.0, 0.0, 5.0), segment(-9.0, 3.0, 9.0, 3.0)), {4.0, 3.0, 0.0},
              {-4.0, 3.0, 0.0});
    expectTwo(meet(circle(0.0, 0.0, 5.0), segment(9.0, 3.0, -9.0, 3.0)), {4.0, 3.0, 0.0},
              {-4.0, 3.0, 0.0});
}

TEST(ArcWithLine, OnlyTheBoundedPiecesCount) {
    const AcGeCircArc3d whole = circle(0.0, 0.0, 5.0);
    expectOne(meet(whole, segment(0.0, 3.0, 9.0, 3.0)), {4.0, 3.0, 0.0});
    expectNone(meet(whole, segment(-1.0, 3.0, 1.0, 3.0)));
    expectNone(meet(whole, segment(5.0, 3.0, 9.0, 3.0)));
    expectOne(meet(arc(0.0, 0.0, 5.0, 0.0, 90.0), segment(-9.0, 3.0, 9.0, 3.0)), {4.0, 3.0, 0.0});
    expectNone(meet(arc(0.0, 0.0, 5.0, 180.0, 360.0), segment(-9.0, 3.0, 9.0, 3.0)));
    expectTwo(meet(whole, AcGeLine3d({50.0, 3.0, 0.0}, AcGeVector3d::kXAxis)), {4.0, 3.0, 0.0},
              {-4.0, 3.0, 0.0});
}

TEST(ArcWithLine, PassesBy) {
    expectNone(meet(circle(0.0, 0.0, 5.0), segment(-9.0, 5.1, 9.0, 5.1)));
}

TEST(ArcWithLine, ATangentContactCountsOnce) {
    const AcGeCircArc3d whole = circle(0.0, 0.0, 5.0);
    expectOne(meet(whole, segment(-9.0, 5.0, 9.0, 5.0)), {0.0, 5.0, 0.0});
    expectOne(meet(whole, segment(-9.0, 5.0 + 0.9e-10, 9.0, 5.0 + 0.9e-10)), {0.0, 5.0, 0.0});
    expectNone(meet(whole, segment(-9.0, 5.0 + 1.1e-10, 9.0, 5.0 + 1.1e-10)));
    expectOne(meet(whole, segment(-9.0, 5.0 - 0.9e-10, 9.0, 5.0 - 0.9e-10)), {0.0, 5.0, 0.0});
    EXPECT_EQ(meet(whole, segment(-9.0, 5.0 - 1.1e-9, 9.0, 5.0 - 1.1e-9)).n, 2);
    const AcGeTol wide = AcGeTol().setEqualPoint(0.2);
    expectOne(meet(whole, segment(-9.0, 5.1, 9.0, 5.1), wide), {0.0, 5.0, 0.0});
    expectNone(meet(whole, segment(1.0, 5.0, 9.0, 5.0)));
    expectNone(meet(arc(0.0, 0.0, 5.0, 100.0, 300.0), segment(-9.0, 5.0, 9.0, 5.0)));
}

TEST(ArcWithLine, EndsHaveTheTolerance) {
    const AcGeCircArc3d quarter = arc(0.0, 0.0, 5.0, 0.0, 90.0);
    // The line x = 0 ends, or begins, just about at the arc's end (0, 5).
    expectOne(meet(quarter, segment(0.0, 5.0 + 0.9e-10, 0.0, 9.0)), {0.0, 5.0, 0.0}, 1.0e-9);
    expectNone(meet(quarter, segment(0.0, 5.0 + 1.1e-10, 0.0, 9.0)));
    expectOne(meet(quarter, segment(-0.9e-10, 1.0, -0.9e-10, 9.0)), {0.0, 5.0, 0.0}, 1.0e-9);
    expectNone(meet(quarter, segment(-1.2e-10, 1.0, -1.2e-10, 9.0)));
    expectOne(meet(quarter, segment(-2.0, 5.0, 0.0, 5.0)), {0.0, 5.0, 0.0}); // tangent at the end
}

// A straight pipe that carries on from an arc's end along its tangent. The end is known better
// than the place where circle and line come closest.
TEST(ArcWithLine, ATangentFromTheArcsEndMeetsIt) {
    for (int i = 0; i < 60; ++i) {
        const double angle = 0.1 + i * 0.1;
        const AcGeVector3d out(std::cos(angle), std::sin(angle), 0.0);
        const AcGePoint3d center(5.0e5 + i, 3.0e6 - i / 7.0, 0.0);
        const AcGePoint3d end = center + out * 50.0;
        const AcGePoint3d start = center + AcGeVector3d(out.y, -out.x, 0.0) * 50.0;
        const AcGeCircArc3d bend = AcGeCircArc3d::fromBulge(start, end, std::sqrt(2.0) - 1.0, up);
        const AcGePoint3d further = end + AcGeVector3d(-out.y, out.x, 0.0) * 80.0;
        const Meeting meeting = meet(bend, AcGeLineSeg3d(end, further), AcGeContext::gTol);
        ASSERT_EQ(meeting.n, 1) << i;
        ASSERT_NEAR(meeting.p1.distanceTo(end), 0.0, 1.0e-2) << i;
        ASSERT_EQ(bend.isOn(meeting.p1), 1) << i;
    }
}

// As before, but leaning inwards by a little. Circle and line then cross at the arc's end and again
// beyond it, 2 * 50 * lean away, where there is no arc. The crossing is badly conditioned: near the
// origin its rounding is far above the tolerance of 1e-10, while the end itself is exact.
TEST(ArcWithLine, AGrazingLineFromTheArcsEndMeetsItThere) {
    for (int i = 0; i < 60; ++i) {
        const double angle = 0.1 + i * 0.1;
        const double lean = 1.0e-5 + i * 1.0e-6;
        const AcGeVector3d out(std::cos(angle), std::sin(angle), 0.0);
        const AcGeVector3d ahead(-out.y, out.x, 0.0);
        const AcGePoint3d center(0.1 * i, -0.3, 0.0);
        const AcGePoint3d end = center + out * 50.0;
        const AcGeCircArc3d bend =
            AcGeCircArc3d::fromBulge(center - ahead * 50.0, end, std::sqrt(2.0) - 1.0, up);
        const AcGeLineSeg3d straight(end, (ahead - out * lean) * 80.0);
        const Meeting meeting = meet(bend, straight);
        ASSERT_EQ(meeting.n, 1) << i;
        ASSERT_LE(meeting.p1.distanceTo(end), 2.0e-10) << i;
    }
}

TEST(ArcWithLine, SurveyCoordinates) {
    const double x = 1.0e7;
    const double y = 9.0e6;
    const Meeting crossing = meet(circle(x, y, 50.0), segment(x, y, x + 60.0, y + 80.0));
    ASSERT_EQ(crossing.n, 1);
    EXPECT_TRUE(near(crossing.p1, AcGePoint3d(x + 30.0, y + 40.0, 0.0), 8.0e-9));
    EXPECT_EQ(
        meet(circle(x, y, 50.0), segment(x - 9.0, y + 50.0 + 0x1p-29, x + 9.0, y + 50.0 + 0x1p-29))
            .n,
        1)
        << "tangent within the noise";
    expectNone(
        meet(circle(x, y, 50.0), segment(x - 9.0, y + 50.0 + 1.0e-6, x + 9.0, y + 50.0 + 1.0e-6)));
}

TEST(ArcWithLine, InDifferentPlanesOnlyThePiercingPlaceCounts) {
    const AcGeCircArc3d whole = circle(0.0, 0.0, 5.0);
    const AcGeLineSeg3d through({3.0, 4.0, -2.0}, AcGePoint3d(3.0, 4.0, 2.0));
    expectOne(meet(whole, through), {3.0, 4.0, 0.0});
    expectNone(meet(arc(0.0, 0.0, 5.0, 90.0, 180.0), through));
    expectNone(meet(whole, AcGeLineSeg3d({3.0, 3.0, -2.0}, AcGePoint3d(3.0, 3.0, 2.0))));
    expectNone(meet(whole, AcGeLineSeg3d({3.0, 4.0, 1.0}, AcGePoint3d(3.0, 4.0, 2.0))));
    expectOne(meet(whole, AcGeLineSeg3d({3.0, 4.0, 0.0}, AcGePoint3d(3.0, 9.0, 2.0))),
              {3.0, 4.0, 0.0});
    expectNone(meet(whole, AcGeLineSeg3d({-9.0, 3.0, 1.0}, AcGePoint3d(9.0, 3.0, 1.0))));
    // Climbs from below to above while it passes over the chord: it meets the plane at x = 0.
    expectNone(meet(whole, AcGeLineSeg3d({-9.0, 3.0, -1.0}, AcGePoint3d(9.0, 3.0, 1.0))));
    expectOne(meet(whole, AcGeLine3d({3.0, 4.0, 50.0}, up)), {3.0, 4.0, 0.0});
}

TEST(ArcWithLine, ALineWithoutLengthIsAPoint) {
    expectOne(meet(circle(0.0, 0.0, 5.0), segment(3.0, 4.0, 3.0, 4.0)), {3.0, 4.0, 0.0});
    expectNone(meet(circle(0.0, 0.0, 5.0), segment(3.0, 3.0, 3.0, 3.0)));
}

TEST(ArcWithArc, CutsTwiceInTheOrderAlongTheFirst) {
    // Centres 6 apart, radii 5: x = 3, y = 4 and -4.
    expectTwo(meet(circle(0.0, 0.0, 5.0), circle(6.0, 0.0, 5.0)), {3.0, 4.0, 0.0},
              {3.0, -4.0, 0.0});
    // Seen from the second circle (its angle 0 lies east) the upper place comes first too.
    expectTwo(meet(circle(6.0, 0.0, 5.0), circle(0.0, 0.0, 5.0)), {3.0, 4.0, 0.0},
              {3.0, -4.0, 0.0});
    // Radii 3 and 4, centres 5 apart: at x = 9/5, y = 12/5.
    expectTwo(meet(circle(0.0, 0.0, 3.0), circle(5.0, 0.0, 4.0)), {1.8, 2.4, 0.0},
              {1.8, -2.4, 0.0});
}

TEST(ArcWithArc, OnlyTheBoundedPiecesCount) {
    expectOne(meet(arc(0.0, 0.0, 5.0, 0.0, 90.0), circle(6.0, 0.0, 5.0)), {3.0, 4.0, 0.0});
    expectOne(meet(circle(6.0, 0.0, 5.0), arc(0.0, 0.0, 5.0, 270.0, 360.0)), {3.0, -4.0, 0.0});
    expectNone(meet(arc(0.0, 0.0, 5.0, 0.0, 90.0), arc(6.0, 0.0, 5.0, 180.0, 270.0)));
    expectNone(meet(circle(0.0, 0.0, 5.0), circle(10.1, 0.0, 5.0)));
    expectNone(meet(circle(0.0, 0.0, 5.0), circle(1.0, 0.0, 3.0))); // one inside the other
    expectNone(meet(circle(0.0, 0.0, 5.0), circle(0.0, 0.0, 3.0)));
}

TEST(ArcWithArc, ATangentContactCountsOnce) {
    const AcGeCircArc3d first = circle(0.0, 0.0, 5.0);
    expectOne(meet(first, circle(8.0, 0.0, 3.0)), {5.0, 0.0, 0.0});
    expectOne(meet(first, circle(8.0 + 0.9e-10, 0.0, 3.0)), {5.0, 0.0, 0.0});
    expectNone(meet(first, circle(8.0 + 1.1e-10, 0.0, 3.0)));
    expectOne(meet(first, circle(8.0 - 0.9e-10, 0.0, 3.0)), {5.0, 0.0, 0.0});
    expectOne(meet(first, circle(0.0, 2.0, 3.0)), {0.0, 5.0, 0.0});
    expectOne(meet(first, circle(0.0, 2.0 - 0.9e-10, 3.0)), {0.0, 5.0, 0.0});
    expectNone(meet(first, circle(0.0, 2.0 - 1.1e-10, 3.0)));
    expectOne(meet(circle(0.0, 2.0, 3.0), first), {0.0, 5.0, 0.0});
    expectNone(meet(first, arc(8.0, 0.0, 3.0, 270.0, 450.0))); // the far half
}

TEST(ArcWithArc, OnOneCircleThereIsNoIntersection) {
    expectNone(meet(circle(1.0, 2.0, 5.0), circle(1.0, 2.0, 5.0)));
    expectNone(meet(arc(1.0, 2.0, 5.0, 0.0, 90.0),
                    arc(1.0, 2.0, 5.0, 90.0, 180.0))); // not even at a common end
    expectNone(meet(circle(1.0, 2.0, 5.0), circle(1.0 + 0.9e-7, 2.0, 5.0 + 0.9e-7)));
    EXPECT_EQ(meet(circle(1.0, 2.0, 5.0), circle(1.0 + 1.1e-7, 2.0, 5.0)).n, 2);
    EXPECT_EQ(meet(circle(1.0, 2.0, 5.0), circle(1.0 + 1.2e-7, 2.0, 5.0 + 1.1e-7)).n, 2);
    expectNone(
        meet(AcGeCircArc3d({0.0, 0.0, 0.0}, up, 5.0), AcGeCircArc3d({0.0, 0.0, 0.0}, -up, 5.0)));
}

TEST(ArcWithArc, ACommonEndOfTwoBends) {
    // An S: left turn about (0, 5) up to (0, 0)... then right turn about (0, -5), tangent there.
    const AcGeCircArc3d left =
        AcGeCircArc3d::fromBulge({-5.0, 5.0, 0.0}, {0.0, 0.0, 0.0}, std::sqrt(2.0) - 1.0, up);
    const AcGeCircArc3d right =
        AcGeCircArc3d::fromBulge({0.0, 0.0, 0.0}, {5.0, -5.0, 0.0}, 1.0 - std::sqrt(2.0), up);
    expectOne(meet(left, right), {0.0, 0.0, 0.0}, 1.0e-6);
    expectOne(meet(right, left), {0.0, 0.0, 0.0}, 1.0e-6);
}

TEST(ArcWithArc, InDifferentPlanesTheSharedLineDecides) {
    const AcGeCircArc3d level = circle(0.0, 0.0, 5.0);
    // Upright in the plane y = 0, same centre and radius: both pass through (5, 0, 0), (-5, 0, 0).
    expectTwo(meet(level, AcGeCircArc3d({0.0, 0.0, 0.0}, AcGeVector3d::kYAxis, 5.0)),
              {5.0, 0.0, 0.0}, {-5.0, 0.0, 0.0});
    // Upright about (5, 0, 3) with radius 3: touches the level plane at (5, 0, 0) alone.
    expectOne(meet(level, AcGeCircArc3d({5.0, 0.0, 3.0}, AcGeVector3d::kYAxis, 3.0)),
              {5.0, 0.0, 0.0});
    // Upright about (5, 0, 0): passes the shared line at x = 2 and 8, which the level one does not.
    expectNone(meet(level, AcGeCircArc3d({5.0, 0.0, 0.0}, AcGeVector3d::kYAxis, 3.0)));
    expectNone(meet(level, AcGeCircArc3d({0.0, 0.0, 1.0}, up, 5.0))); // parallel planes
    expectNone(meet(level, AcGeCircArc3d({0.0, 9.0, 0.0}, AcGeVector3d::kYAxis, 5.0)));
}

TEST(ArcWithArc, FlippedNormalsAreOnePlane) {
    const AcGeCircArc3d flipped({6.0, 0.0, 0.0}, -up, 5.0);
    expectTwo(meet(circle(0.0, 0.0, 5.0), flipped), {3.0, 4.0, 0.0}, {3.0, -4.0, 0.0});
}

TEST(ArcWithArc, SurveyCoordinates) {
    const double x = 1.0e7;
    const double y = 9.0e6;
    const Meeting crossing = meet(circle(x, y, 50.0), circle(x + 60.0, y, 50.0));
    ASSERT_EQ(crossing.n, 2);
    EXPECT_TRUE(near(crossing.p1, AcGePoint3d(x + 30.0, y + 40.0, 0.0), 8.0e-9));
    EXPECT_TRUE(near(crossing.p2, AcGePoint3d(x + 30.0, y - 40.0, 0.0), 8.0e-9));
    EXPECT_EQ(meet(circle(x, y, 50.0), circle(x + 80.0 + 0x1p-29, y, 30.0)).n, 1)
        << "tangent within the noise";
    expectNone(meet(circle(x, y, 50.0), circle(x + 80.0 + 1.0e-6, y, 30.0)));
}

} // namespace
