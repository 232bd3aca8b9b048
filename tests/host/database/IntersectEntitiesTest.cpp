#include "host/database/DatabaseFixture.h"

#include "database/AcDbArc.h"
#include "database/AcDbCircle.h"
#include "database/AcDbEllipse.h"
#include "database/AcDbPolyline.h"
#include "database/AcDbText.h"

#include <cmath>
#include <numbers>
#include <random>

namespace {

constexpr double kPi = std::numbers::pi;

class IntersectEntitiesTest : public DatabaseFixture {
protected:
    using Points = std::vector<AcGePoint3d>;

    static void expectMeetings(const AcDbEntity& one, const AcDbEntity& other,
                               AcDb::Intersect which, const Points& expected) {
        AcGePoint3dArray points;
        ASSERT_EQ(one.intersectWith(&other, which, points), Acad::eOk);
        ASSERT_EQ(points.length(), static_cast<int>(expected.size()));
        for (int i = 0; i < points.length(); ++i) {
            const AcGePoint3d& point = expected[static_cast<std::size_t>(i)];
            expectPoint(points[i], point.x, point.y, point.z);
        }
    }

    static void expectMeetings(const AcDbEntity& one, const AcDbEntity& other,
                               const Points& expected) {
        expectMeetings(one, other, AcDb::kOnBothOperands, expected);
    }

    static AcDbLine line(const AcGePoint3d& start, const AcGePoint3d& end) { return {start, end}; }

    const AcGeVector3d up_{0, 0, 1};
};

TEST_F(IntersectEntitiesTest, LinesMeetInSpace) {
    const AcDbLine rising({0, 0, 0}, {10, 0, 10});
    expectMeetings(rising, AcDbLine({5, -5, 5}, {5, 5, 5}), {{5, 0, 5}});
    // One above the other.
    expectMeetings(rising, AcDbLine({5, -5, 6}, {5, 5, 6}), {});
    // At an end of each.
    expectMeetings(rising, AcDbLine({10, 0, 10}, {10, 5, 3}), {{10, 0, 10}});
    // Too short.
    expectMeetings(rising, AcDbLine({5, -5, 5}, {5, -1, 5}), {});
}

TEST_F(IntersectEntitiesTest, ParallelLinesNeverMeet) {
    const AcDbLine one({0, 0, 0}, {10, 0, 0});
    expectMeetings(one, AcDbLine({2, 0, 0}, {20, 0, 0}), {});
    expectMeetings(one, AcDbLine({0, 1, 0}, {10, 1, 0}), AcDb::kExtendBoth, {});
}

TEST_F(IntersectEntitiesTest, EitherMayBeProlonged) {
    const AcDbLine one({0, 0, 0}, {4, 0, 0});
    const AcDbLine other({6, 2, 0}, {6, 9, 0});
    expectMeetings(one, other, {});
    expectMeetings(one, other, AcDb::kExtendThis, {});
    expectMeetings(one, other, AcDb::kExtendArg, {});
    expectMeetings(one, other, AcDb::kExtendBoth, {{6, 0, 0}});
    const AcDbLine crossing({6, -2, 0}, {6, 9, 0});
    expectMeetings(one, crossing, AcDb::kExtendThis, {{6, 0, 0}});
    expectMeetings(crossing, one, AcDb::kExtendArg, {{6, 0, 0}});
    expectMeetings(crossing, one, AcDb::kExtendThis, {});
}

// Of two lines drawn one upon the other far out, rounding turns one a little.
TEST_F(IntersectEntitiesTest, LinesThatRoundingAloneTurnsAreParallel) {
    const double far = 1e7;
    const double above = std::nextafter(far, 2 * far);
    const double below = std::nextafter(far, 0.0);
    const AcDbLine one({far, far, 0}, {far + 25, far, 0});
    const AcDbLine turned({far, above, 0}, {far + 25, below, 0});
    expectMeetings(one, turned, {});
    expectMeetings(one, turned, AcDb::kExtendBoth, {});
    // A millimetre across 25 m is no rounding.
    expectMeetings(one, AcDbLine({far, far + 0.0005, 0}, {far + 25, far - 0.0005, 0}),
                   {{far + 12.5, far, 0}});
}

// The lines themselves cross outside both, several tolerances from the end that lies close.
TEST_F(IntersectEntitiesTest, LinesMeetWhereTheyComeClosestHoweverFlatTheAngle) {
    const AcDbLine level({0, 0, 0}, {40, 0, 0});
    const AcDbLine rising({5, 0.9e-10, 0}, {105, 1, 0});
    expectMeetings(level, rising, {{5, 0, 0}});
    expectMeetings(rising, level, {{5, 0, 0}});
    expectMeetings(level, AcDbLine({5, 1.1e-10, 0}, {105, 1, 0}), {});
}

// So far out, places that are reckoned on either line differ by more than points may that meet.
TEST_F(IntersectEntitiesTest, ProlongedLinesMeetAsFarOutAsTheirAngleTakesThem) {
    const double farOut = 4e8;
    for (int i = 0; i < 60; ++i) {
        const AcGeVector3d along(std::cos(0.1 * i), std::sin(0.1 * i), 0);
        const AcGePoint3d start(0.1, 0.2, 0);
        const AcGePoint3d beside = start + along.crossProduct(up_);
        const AcGePoint3d place = start + along * farOut;
        const AcDbLine one(start, start + along * 25);
        const AcDbLine other(beside, beside + (place - beside) * (25 / farOut));
        AcGePoint3dArray points;
        ASSERT_EQ(one.intersectWith(&other, AcDb::kExtendBoth, points), Acad::eOk);
        ASSERT_EQ(points.length(), 1) << i;
        // An angle of 2.5e-9 is known to a ten millionth of itself.
        EXPECT_LT(points[0].distanceTo(place), 1e-6 * farOut) << i;
    }
}

TEST_F(IntersectEntitiesTest, APolylineIsProlongedAtItsOuterEndsAlone) {
    AcDbPolyline roof;
    roof.addVertexAt(0, {0, 0});
    roof.addVertexAt(1, {5, 5});
    roof.addVertexAt(2, {10, 0});
    const AcDbLine ground({-20, -5, 0}, {20, -5, 0});
    expectMeetings(roof, ground, {});
    expectMeetings(roof, ground, AcDb::kExtendThis, {{-5, -5, 0}, {15, -5, 0}});
    // Neither side goes on beyond the ridge.
    expectMeetings(roof, AcDbLine({-20, 6, 0}, {20, 6, 0}), AcDb::kExtendThis, {});
}

TEST_F(IntersectEntitiesTest, ALineRunsThroughACircleEndsInItOrTouchesIt) {
    const AcDbCircle circle({5, 0, 1}, up_, 2.0);
    expectMeetings(AcDbLine({0, 0, 1}, {10, 0, 1}), circle, {{3, 0, 1}, {7, 0, 1}});
    expectMeetings(AcDbLine({10, 0, 1}, {0, 0, 1}), circle, {{7, 0, 1}, {3, 0, 1}});
    expectMeetings(AcDbLine({0, 0, 1}, {5, 0, 1}), circle, {{3, 0, 1}});
    expectMeetings(AcDbLine({4, 0, 1}, {6, 0, 1}), circle, {});
    expectMeetings(AcDbLine({0, 2, 1}, {10, 2, 1}), circle, {{5, 2, 1}});
    expectMeetings(AcDbLine({0, 0, 0}, {10, 0, 0}), circle, {});
    // A post on the rim pierces the circle's plane.
    expectMeetings(AcDbLine({7, 0, 0}, {7, 0, 9}), circle, {{7, 0, 1}});
    expectMeetings(AcDbLine({6, 0, 0}, {6, 0, 9}), circle, {});
    // A slope through one place of the rim.
    expectMeetings(AcDbLine({6, 0, 0}, {8, 0, 2}), circle, {{7, 0, 1}});
}

TEST_F(IntersectEntitiesTest, CirclesMeetTwiceOnceOrNever) {
    const AcDbCircle one({0, 0, 0}, up_, 5.0);
    expectMeetings(one, AcDbCircle({6, 0, 0}, up_, 5.0), {{3, 4, 0}, {3, -4, 0}});
    expectMeetings(one, AcDbCircle({8, 0, 0}, up_, 3.0), {{5, 0, 0}});
    expectMeetings(one, AcDbCircle({2, 0, 0}, up_, 3.0), {{5, 0, 0}});
    expectMeetings(one, AcDbCircle({0, 0, 0}, up_, 5.0), {});
    expectMeetings(one, AcDbCircle({0, 0, 0}, up_, 3.0), {});
    // Turned by a right angle about X: both hold the points of the X axis.
    expectMeetings(one, AcDbCircle({0, 0, 0}, {0, 1, 0}, 5.0), {{5, 0, 0}, {-5, 0, 0}});
}

TEST_F(IntersectEntitiesTest, AnArcProlongedIsItsCircle) {
    const AcDbArc upper({0, 0, 0}, 5.0, 0.1, kPi - 0.1);
    const AcDbLine across({3, -9, 0}, {3, 9, 0});
    expectMeetings(across, upper, {{3, 4, 0}});
    expectMeetings(across, upper, AcDb::kExtendArg, {{3, -4, 0}, {3, 4, 0}});
}

TEST_F(IntersectEntitiesTest, WhereTwoSegmentsOfAPolylineJoinThereIsOneMeeting) {
    AcDbPolyline polyline;
    polyline.addVertexAt(0, {0, 0});
    polyline.addVertexAt(1, {5, 5});
    polyline.addVertexAt(2, {10, 0});
    expectMeetings(AcDbLine({5, 0, 0}, {5, 9, 0}), polyline, {{5, 5, 0}});
    expectMeetings(AcDbLine({-9, 1, 0}, {19, 1, 0}), polyline, {{1, 1, 0}, {9, 1, 0}});
    // Its end segments go on: they meet y = -1 at x = -1 and x = 11.
    expectMeetings(AcDbLine({-9, -1, 0}, {19, -1, 0}), polyline, AcDb::kExtendArg,
                   {{-1, -1, 0}, {11, -1, 0}});
}

TEST_F(IntersectEntitiesTest, AnEllipseIsMetExactly) {
    const AcDbEllipse ellipse({0, 0, 0}, up_, {4, 0, 0}, 0.5, 0.0, 2.0 * kPi);
    expectMeetings(AcDbLine({-9, 0, 0}, {9, 0, 0}), ellipse, {{-4, 0, 0}, {4, 0, 0}});
    // At x = 2 the ellipse is at y = 2 sqrt(1 - 1/4).
    const double y = std::sqrt(3.0);
    expectMeetings(AcDbLine({2, -9, 0}, {2, 9, 0}), ellipse, {{2, -y, 0}, {2, y, 0}});
    // With x^2 + y^2 = 9: x^2 (1 - 1/4) = 5.
    AcGePoint3dArray points;
    AcDbCircle({0, 0, 0}, up_, 3.0).intersectWith(&ellipse, AcDb::kOnBothOperands, points);
    ASSERT_EQ(points.length(), 4);
    for (const AcGePoint3d& point : points) {
        EXPECT_NEAR(point.x * point.x, 5.0 / 0.75, 1e-8);
        EXPECT_NEAR(point.x * point.x + point.y * point.y, 9.0, 1e-8);
    }
}

TEST_F(IntersectEntitiesTest, ABlockShowsItsDefinition) {
    const AcDbObjectId inner = addBlock(L"INNER");
    addTo(inner, std::make_unique<AcDbCircle>(AcGePoint3d(), up_, 1.0));
    const AcDbObjectId outer = addBlock(L"OUTER");
    addTo(outer, std::make_unique<AcDbBlockReference>(AcGePoint3d(0, 3, 0), inner));
    auto made = std::make_unique<AcDbBlockReference>(AcGePoint3d(10, 0, 0), outer);
    made->setScaleFactors({-2, 2, 2});
    const AcDbObjectId id = add(std::move(made));
    const auto* reference = host_db::peek<AcDbBlockReference>(id);
    // The circle of radius 2 about (10, 6).
    expectMeetings(AcDbLine({0, 6, 0}, {20, 6, 0}), *reference, {{8, 6, 0}, {12, 6, 0}});
    const AcDbLine aside({0, 6, 0}, {1, 6, 0});
    AcGePoint3dArray points;
    EXPECT_EQ(reference->intersectWith(&aside, AcDb::kExtendArg, points), Acad::eOk);
    EXPECT_EQ(points.length(), 2);
}

TEST_F(IntersectEntitiesTest, AnArrayShowsEveryCell) {
    const AcDbObjectId block = addBlock(L"POST");
    addTo(block, std::make_unique<AcDbLine>(AcGePoint3d(0, -1, 0), AcGePoint3d(0, 1, 0)));
    auto made = std::make_unique<AcDbBlockReference>(AcGePoint3d(1, 0, 0), block);
    made->setGrid(3, 1, 4.0, 0.0);
    const AcDbObjectId id = add(std::move(made));
    expectMeetings(AcDbLine({0, 0, 0}, {20, 0, 0}), *host_db::peek<AcDbBlockReference>(id),
                   {{1, 0, 0}, {5, 0, 0}, {9, 0, 0}});
}

TEST_F(IntersectEntitiesTest, TextsHaveNoMeetingAndNullIsRefused) {
    const AcDbLine one({0, 0, 0}, {4, 0, 0});
    const AcDbText text({1, -1, 0}, L"X", AcDbObjectId::kNull, 5.0);
    expectMeetings(one, text, {});
    AcGePoint3dArray points;
    EXPECT_EQ(one.intersectWith(nullptr, AcDb::kOnBothOperands, points), Acad::eInvalidInput);
}

TEST_F(IntersectEntitiesTest, PointsAreAppended) {
    AcGePoint3dArray points;
    points.append({5, 0, 0});
    const AcDbLine other({5, -5, 0}, {5, 5, 0});
    AcDbLine({0, 0, 0}, {10, 0, 0}).intersectWith(&other, AcDb::kOnBothOperands, points);
    EXPECT_EQ(points.length(), 2);
}

TEST_F(IntersectEntitiesTest, SurveyCoordinatesMeetAsWell) {
    const AcGeVector3d shift(38'412'345.678, 4'123'456.789, 0);
    const AcDbLine one(AcGePoint3d(0, 0, 7) + shift, AcGePoint3d(10, 10, 7) + shift);
    const AcDbLine other(AcGePoint3d(10, 10, 7) + shift, AcGePoint3d(33, 10, 2) + shift);
    AcGePoint3dArray points;
    one.intersectWith(&other, AcDb::kOnBothOperands, points);
    ASSERT_EQ(points.length(), 1);
    EXPECT_LE(points[0].distanceTo(AcGePoint3d(10, 10, 7) + shift), 1e-7);
}

/// The plane of two lines that reach so far out has no normal that a number can hold.
TEST_F(IntersectEntitiesTest, LinesThatReachBeyondReckoningMeetNothing) {
    const AcDbLine one({-1e300, -1e300, 0.0}, {1e300, 1e300, 0.0});
    const AcDbLine other({-1e300, 1e300, 0.0}, {1e300, -1e300, 0.0});
    AcGePoint3dArray points;
    EXPECT_EQ(one.intersectWith(&other, AcDb::kOnBothOperands, points), Acad::eOk);
    EXPECT_TRUE(points.isEmpty());
}

/// Against the geometry classes, which are another road to the same answer.
TEST_F(IntersectEntitiesTest, RandomLinesAndArcsAgreeWithTheGeometryClasses) {
    std::mt19937 random(4711);
    std::uniform_real_distribution<double> coordinate(-10.0, 10.0);
    const auto point = [&] { return AcGePoint3d(coordinate(random), coordinate(random), 0.0); };
    int met = 0;
    for (int i = 0; i < 2000; ++i) {
        const AcDbLine one(point(), point());
        const double from = coordinate(random);
        const AcDbArc arc(point(), 1.0 + std::abs(coordinate(random)), from, from + 2.5);
        AcGePoint3dArray points;
        one.intersectWith(&arc, AcDb::kOnBothOperands, points);
        const AcGeCircArc3d circular(arc.center(), up_, {1, 0, 0}, arc.radius(), from, from + 2.5);
        int count = 0;
        AcGePoint3d p1;
        AcGePoint3d p2;
        circular.intersectWith(AcGeLineSeg3d(one.startPoint(), one.endPoint()), count, p1, p2);
        ASSERT_EQ(points.length(), count);
        for (const AcGePoint3d& found : points) {
            EXPECT_LE(std::min(found.distanceTo(p1), found.distanceTo(p2)), 1e-8);
        }
        met += count;
    }
    EXPECT_GT(met, 200);
}

} // namespace
