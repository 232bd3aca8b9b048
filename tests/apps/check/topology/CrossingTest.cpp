#include "CheckTest.h"

namespace check_tests {

using module_tests::kSupply;
using module_tests::PipeTexts;

/// The heights of two pipes that cross in the middle of both; each has a diameter of 250 mm.
class CrossingTest : public CheckTest {
protected:
    /// Sewers from well to well that cross at the origin.
    void laySewers(const wchar_t* firstHeight, const wchar_t* secondHeight) {
        for (const AcGePoint3d& at : {AcGePoint3d(-30.0, 0.0, 0.0), AcGePoint3d(30.0, 0.0, 0.0),
                                      AcGePoint3d(0.0, -30.0, 0.0), AcGePoint3d(0.0, 30.0, 0.0)}) {
            drawing.addWell(at);
        }
        first = drawing.addPipe({-29.5, 0.0, 0.0}, {29.5, 0.0, 0.0}, level(firstHeight));
        second = drawing.addPipe({0.0, -29.5, 0.0}, {0.0, 29.5, 0.0}, level(secondHeight));
    }

    static PipeTexts level(const wchar_t* height) {
        return {.diameter = L"250", .startElevation = height, .endElevation = height};
    }

    void layMains(const PipeTexts& firstTexts, const PipeTexts& secondTexts) {
        first = drawing.addPipe({-20.0, 0.0, 0.0}, {20.0, 0.0, 0.0}, firstTexts);
        second = drawing.addPipe({0.0, -20.0, 0.0}, {0.0, 20.0, 0.0}, secondTexts);
    }

    static PipeTexts main(const wchar_t* start, const wchar_t* end) {
        return {
            .system = kSupply, .diameter = L"250", .startElevation = start, .endElevation = end};
    }

    AcDbObjectId first, second;
};

TEST_F(CrossingTest, SewersNearerThanTheirDiameters) {
    laySewers(L"1", L"1.25");
    const Finding finding = only("crossing-without-joint", Severity::warning);
    EXPECT_EQ(finding.entities, (Ids{first, second}));
    EXPECT_TRUE(module_tests::samePoint(finding.place, AcGePoint3d()));
    expectMeasured(finding, 0.25, 0.5, "m");
}

TEST_F(CrossingTest, SewersApartByTheirDiameters) {
    laySewers(L"1", L"1.5");
    expectMeasured(only("crossing-without-joint", Severity::note), 0.5, 0.5, "m");
}

TEST_F(CrossingTest, SewersWithoutHeights) {
    laySewers(nullptr, L"1.5");
    EXPECT_FALSE(only("crossing-without-joint", Severity::note).measured);
}

TEST_F(CrossingTest, SewersDrawnAtDifferentHeights) {
    drawing.addWell({-30.0, 0.0, 0.0});
    drawing.addWell({30.0, 0.0, 0.0});
    drawing.addWell({0.0, -30.0, 5.0});
    drawing.addWell({0.0, 30.0, 5.0});
    drawing.addPipe({-29.5, 0.0, 0.0}, {29.5, 0.0, 0.0});
    drawing.addPipe({0.0, -29.5, 5.0}, {0.0, 29.5, 5.0});
    only("crossing-without-joint", Severity::note);
}

TEST_F(CrossingTest, SewersThatCrossInAWell) {
    laySewers(L"1", L"1");
    drawing.addWell({0.0, 0.0, 0.0});
    check();
    EXPECT_TRUE(found("crossing-without-joint").empty());
}

TEST_F(CrossingTest, SewersThatPassOneAnother) {
    drawing.addWell({-30.0, 0.0, 0.0});
    drawing.addWell({30.0, 0.0, 0.0});
    drawing.addWell({0.0, 1.0, 0.0});
    drawing.addWell({0.0, 30.0, 0.0});
    drawing.addPipe({-29.5, 0.0, 0.0}, {29.5, 0.0, 0.0});
    drawing.addPipe({0.0, 1.5, 0.0}, {0.0, 29.5, 0.0});
    expectNone();
}

TEST_F(CrossingTest, MainsFartherApartThanTheirDiameters) {
    layMains(main(L"1", L"1"), main(L"1.75", L"1.75"));
    const Finding finding = only("crossing-heights", Severity::warning);
    EXPECT_EQ(finding.entities, (Ids{first, second}));
    EXPECT_TRUE(module_tests::samePoint(finding.place, AcGePoint3d()));
    expectMeasured(finding, 0.75, 0.5, "m");
}

TEST_F(CrossingTest, MainsApartByTheirDiameters) {
    layMains(main(L"1", L"1"), main(L"1.5", L"1.5"));
    expectNone();
    EXPECT_EQ(report.networks.size(), 1U);
}

/// Half way between 0 and 2 is 1.
TEST_F(CrossingTest, HeightsAreSharedOutAlongThePipes) {
    layMains(main(L"0", L"2"), main(L"1.5", L"0.5"));
    expectNone();
}

TEST_F(CrossingTest, MainsWithoutHeights) {
    layMains(main(nullptr, nullptr), main(L"9", L"9"));
    expectNone();
}

} // namespace check_tests
