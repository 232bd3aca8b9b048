// The shape of a segment, its defaults and how it is copied.

#include "module/pressure/PressureTest.h"
#include "pressure/PressureSearchObject.h"

#include <cstdint>
#include <functional>
#include <type_traits>

namespace module_tests {

namespace {

template<class Actual, class Expected>
constexpr bool kIs = std::is_same_v<Actual, Expected>;

using Points = CArray<AcGePoint3d, AcGePoint3d>;

static_assert(kIs<decltype(PressureSeg::endPoint), AcGePoint3d>);
static_assert(kIs<decltype(PressureSeg::startElevation), double>);
static_assert(kIs<decltype(PressureSeg::endElevation), double>);
static_assert(kIs<decltype(PressureSeg::material), CString>);
static_assert(kIs<decltype(PressureSeg::systemName), CString>);
static_assert(kIs<decltype(PressureSeg::callerValueA), double>);

class PressureSegFields : public PressureTest {
protected:
    /// Every field with a value of its own, none of them the default; `lengthMode` is that of the
    /// drawing.
    void fill(PressureSeg& seg) {
        const AcDbObjectId a = drawing.well({0, 0, 0});
        const AcDbObjectId b = drawing.well({1, 0, 0});
        seg.pipeIds.append(a);
        seg.orientationFlags.Add(0);
        seg.startPoint = {1, 2, 3};
        seg.endPoint = {4, 5, 6};
        seg.parent = 7;
        seg.children.Add(8);
        seg.children.Add(9);
        seg.reversed = 10;
        seg.valvePoints.Add({11, 0, 0});
        seg.meterPoints.Add({12, 0, 0});
        seg.valveIds.append(b);
        seg.meterIds.append(a);
        seg.startElevation = 13.5;
        seg.endElevation = 14.5;
        seg.slope = 0.015;
        seg.diameter = 160;
        seg.flowText = L"ES";
        seg.material = L"PE";
        seg.systemName = kSupply;
        seg.outputPoints.Add({17, 0, 0});
        seg.outputValues.Add(18.5);
        seg.outputIds.Add(b);
        seg.callerValueA = 19.5;
        seg.callerValueB = 20.5;
        seg.isArc = 21;
        seg.arc.set({22, 0, 0}, {0, 0, 1}, 23);
        seg.line.set(AcGePoint3d(24, 0, 0), AcGePoint3d(25, 0, 0));
    }

    /// All that `fill` wrote.
    void expectFilled(PressureSeg& seg) {
        ASSERT_EQ(seg.pipeIds.length(), 1);
        ASSERT_EQ(seg.valveIds.length(), 1);
        ASSERT_EQ(seg.outputIds.GetSize(), 1);
        EXPECT_EQ(idsOf(seg.pipeIds), idsOf(seg.meterIds));
        EXPECT_EQ(seg.outputIds[0], seg.valveIds.at(0));
        EXPECT_FALSE(seg.pipeIds.at(0).isNull());
        EXPECT_NE(seg.pipeIds.at(0), seg.valveIds.at(0));
        EXPECT_EQ(intsOf(seg.orientationFlags), std::vector<int>{0});
        EXPECT_EQ(intsOf(seg.children), (std::vector<int>{8, 9}));
        EXPECT_EQ(xOf(seg.valvePoints), std::vector<double>{11});
        EXPECT_EQ(xOf(seg.meterPoints), std::vector<double>{12});
        EXPECT_EQ(xOf(seg.outputPoints), std::vector<double>{17});
        expectNumbers(seg);
    }

    static void expectNumbers(PressureSeg& seg) {
        EXPECT_TRUE(samePoint(seg.startPoint, {1, 2, 3}, 0));
        EXPECT_TRUE(samePoint(seg.endPoint, {4, 5, 6}, 0));
        EXPECT_EQ(seg.parent, 7);
        EXPECT_EQ(seg.reversed, 10);
        EXPECT_EQ(seg.startElevation, 13.5);
        EXPECT_EQ(seg.endElevation, 14.5);
        EXPECT_EQ(seg.slope, 0.015);
        EXPECT_EQ(seg.diameter, 160);
        EXPECT_EQ(utf8(seg.flowText), "ES");
        EXPECT_EQ(utf8(seg.material), "PE");
        EXPECT_EQ(utf8(seg.systemName), "给水");
        ASSERT_EQ(seg.outputValues.GetSize(), 1);
        EXPECT_EQ(seg.outputValues[0], 18.5);
        EXPECT_EQ(seg.callerValueA, 19.5);
        EXPECT_EQ(seg.callerValueB, 20.5);
        EXPECT_EQ(seg.isArc, 21);
        EXPECT_TRUE(samePoint(seg.arc.center(), {22, 0, 0}, 0));
        EXPECT_EQ(seg.arc.radius(), 23.0);
        EXPECT_TRUE(samePoint(seg.line.startPoint(), {24, 0, 0}, 0));
        EXPECT_TRUE(samePoint(seg.line.endPoint(), {25, 0, 0}, 0));
    }
};

} // namespace

TEST_F(PressureSegFields, FreshSegmentHasNoPlaceInATree) {
    PressureSeg seg;
    EXPECT_EQ(seg.parent, -1);
    EXPECT_EQ(seg.children.GetSize(), 0);
    EXPECT_EQ(seg.reversed, 0);
    EXPECT_TRUE(samePoint(seg.startPoint, {0, 0, 0}, 0));
    EXPECT_TRUE(samePoint(seg.endPoint, {0, 0, 0}, 0));
    EXPECT_TRUE(samePoint(seg.GetSearchPoint(), {0, 0, 0}, 0));
}

TEST_F(PressureSegFields, FreshSegmentHasEmptyLists) {
    const PressureSeg seg;
    for (const AcDbObjectIdArray* ids : {&seg.pipeIds, &seg.valveIds, &seg.meterIds}) {
        EXPECT_EQ(ids->length(), 0);
        EXPECT_EQ(ids->physicalLength(), 0);
        EXPECT_EQ(ids->growLength(), 8);
    }
    EXPECT_EQ(seg.orientationFlags.GetSize(), 0);
    EXPECT_EQ(seg.valvePoints.GetSize(), 0);
    EXPECT_EQ(seg.meterPoints.GetSize(), 0);
    EXPECT_EQ(seg.outputPoints.GetSize(), 0);
    EXPECT_EQ(seg.outputValues.GetSize(), 0);
    EXPECT_EQ(seg.outputIds.GetSize(), 0);
}

TEST_F(PressureSegFields, FreshSegmentHasNoValues) {
    PressureSeg seg;
    EXPECT_EQ(seg.startElevation, 0.0);
    EXPECT_EQ(seg.endElevation, 0.0);
    EXPECT_EQ(seg.slope, 0.0);
    EXPECT_EQ(seg.diameter, 0);
    EXPECT_TRUE(seg.flowText.IsEmpty());
    EXPECT_TRUE(seg.material.IsEmpty());
    EXPECT_TRUE(seg.systemName.IsEmpty());
    EXPECT_EQ(seg.callerValueA, 0.0);
    EXPECT_EQ(seg.callerValueB, 0.0);
    EXPECT_EQ(seg.isArc, 0);
}

TEST_F(PressureSegFields, CurvesOfAFreshSegmentAreThePlatformsOwnFreshOnes) {
    const PressureSeg seg;
    const AcGeCircArc3d arc;
    EXPECT_TRUE(samePoint(seg.arc.center(), arc.center(), 0));
    EXPECT_TRUE(sameVector(seg.arc.normal(), arc.normal(), 0));
    EXPECT_EQ(seg.arc.radius(), arc.radius());
    EXPECT_EQ(seg.arc.startAng(), arc.startAng());
    EXPECT_EQ(seg.arc.endAng(), arc.endAng());
    EXPECT_TRUE(samePoint(seg.arc.startPoint(), arc.startPoint(), 0));
    const AcGeLineSeg3d line;
    EXPECT_TRUE(samePoint(seg.line.startPoint(), line.startPoint(), 0));
    EXPECT_TRUE(samePoint(seg.line.endPoint(), line.endPoint(), 0));
}

TEST_F(PressureSegFields, LengthModeIsAskedForAtEachConstruction) {
    for (const int mode : {0, 1, 2}) {
        drawing.setLengthMode(mode);
        EXPECT_EQ(PressureSeg().lengthMode, mode);
    }
}

TEST_F(PressureSegFields, CopyHasEveryFieldButTheLengthMode) {
    PressureSeg source;
    fill(source);
    PressureSeg copy(source);
    expectFilled(copy);
    PressureSeg assigned;
    assigned = source;
    expectFilled(assigned);
}

TEST_F(PressureSegFields, CopyIsDeep) {
    PressureSeg source;
    fill(source);
    PressureSeg copy(source);
    PressureSeg assigned;
    assigned = source;
    source.pipeIds.append(AcDbObjectId());
    source.pipeIds.at(0).setNull();
    source.orientationFlags[0] = 99;
    source.children[0] = 99;
    source.children.Add(99);
    source.valvePoints[0] = {99, 0, 0};
    source.meterPoints[0] = {99, 0, 0};
    source.valveIds.at(0).setNull();
    source.meterIds.at(0).setNull();
    source.outputPoints[0] = {99, 0, 0};
    source.outputValues[0] = 99;
    source.outputIds[0].setNull();
    expectFilled(copy);
    expectFilled(assigned);
}

TEST_F(PressureSegFields, AssignmentKeepsTheTargetsLengthMode) {
    drawing.setLengthMode(1);
    PressureSeg target;
    drawing.setLengthMode(2);
    PressureSeg source;
    fill(source);
    drawing.setLengthMode(0);
    PressureSeg& result = target = source;
    EXPECT_EQ(&result, &target);
    EXPECT_EQ(target.lengthMode, 1);
    EXPECT_EQ(source.lengthMode, 2);
}

TEST_F(PressureSegFields, SlotOfAnArrayKeepsTheLengthModeOfItsOwnConstruction) {
    drawing.setLengthMode(2);
    PressureSeg source;
    fill(source);
    drawing.setLengthMode(1);
    segs.Add(source);
    EXPECT_EQ(seg(0).lengthMode, 1);
    expectFilled(seg(0));
}

TEST_F(PressureSegFields, AssignmentReplacesWhatTheTargetHeld) {
    PressureSeg target;
    fill(target);
    PressureSeg empty;
    target = empty;
    EXPECT_EQ(target.pipeIds.length(), 0);
    EXPECT_EQ(target.children.GetSize(), 0);
    EXPECT_EQ(target.outputValues.GetSize(), 0);
    EXPECT_EQ(target.parent, -1);
    EXPECT_TRUE(target.material.IsEmpty());
}

TEST_F(PressureSegFields, AssignmentToItselfChangesNothing) {
    PressureSeg seg;
    fill(seg);
    PressureSeg& same = seg;
    seg = same;
    expectFilled(seg);
}

TEST_F(PressureSegFields, CopiesTakeANonConstReference) {
    EXPECT_TRUE((std::is_constructible_v<PressureSeg, PressureSeg&>));
    EXPECT_FALSE((std::is_constructible_v<PressureSeg, const PressureSeg&>));
    EXPECT_TRUE((std::is_assignable_v<PressureSeg&, PressureSeg&>));
    EXPECT_FALSE((std::is_assignable_v<PressureSeg&, const PressureSeg&>));
    EXPECT_FALSE(std::is_polymorphic_v<PressureSeg>);
}

TEST_F(PressureSegFields, FieldsHaveTheTypesOfTheBoundary) {
    EXPECT_TRUE((kIs<decltype(PressureSeg::pipeIds), AcDbObjectIdArray>));
    EXPECT_TRUE((kIs<decltype(PressureSeg::orientationFlags), CArray<int, int>>));
    EXPECT_TRUE((kIs<decltype(PressureSeg::startPoint), AcGePoint3d>));
    EXPECT_TRUE((kIs<decltype(PressureSeg::parent), std::int32_t>));
    EXPECT_TRUE((kIs<decltype(PressureSeg::children), CArray<int, int>>));
    EXPECT_TRUE((kIs<decltype(PressureSeg::reversed), std::int32_t>));
    EXPECT_TRUE((kIs<decltype(PressureSeg::valvePoints), Points>));
    EXPECT_TRUE((kIs<decltype(PressureSeg::meterPoints), Points>));
    EXPECT_TRUE((kIs<decltype(PressureSeg::valveIds), AcDbObjectIdArray>));
    EXPECT_TRUE((kIs<decltype(PressureSeg::meterIds), AcDbObjectIdArray>));
    EXPECT_TRUE((kIs<decltype(PressureSeg::slope), double>));
    EXPECT_TRUE((kIs<decltype(PressureSeg::diameter), std::int32_t>));
    EXPECT_TRUE((kIs<decltype(PressureSeg::flowText), CString>));
    EXPECT_TRUE((kIs<decltype(PressureSeg::outputPoints), Points>));
    EXPECT_TRUE((kIs<decltype(PressureSeg::outputValues), CArray<double, double>>));
    EXPECT_TRUE((kIs<decltype(PressureSeg::outputIds), CArray<AcDbObjectId, AcDbObjectId>>));
    EXPECT_TRUE((kIs<decltype(PressureSeg::callerValueB), double>));
    EXPECT_TRUE((kIs<decltype(PressureSeg::isArc), std::int32_t>));
    EXPECT_TRUE((kIs<decltype(PressureSeg::arc), AcGeCircArc3d>));
    EXPECT_TRUE((kIs<decltype(PressureSeg::line), AcGeLineSeg3d>));
    EXPECT_TRUE((kIs<decltype(PressureSeg::lengthMode), std::int32_t>));
}

TEST_F(PressureSegFields, StandInTheOrderOfTheBoundary) {
    const PressureSeg s;
    const std::vector<const void*> fields = {
        &s.pipeIds,   &s.orientationFlags, &s.startPoint,   &s.endPoint,     &s.parent,
        &s.children,  &s.reversed,         &s.valvePoints,  &s.meterPoints,  &s.valveIds,
        &s.meterIds,  &s.startElevation,   &s.endElevation, &s.slope,        &s.diameter,
        &s.flowText,  &s.material,         &s.systemName,   &s.outputPoints, &s.outputValues,
        &s.outputIds, &s.callerValueA,     &s.callerValueB, &s.isArc,        &s.arc,
        &s.line,      &s.lengthMode};
    EXPECT_EQ(fields.front(), static_cast<const void*>(&s)) << "nothing stands in front";
    for (std::size_t i = 1; i < fields.size(); ++i) {
        EXPECT_TRUE(std::less<>()(fields[i - 1], fields[i])) << "field " << i;
    }
}

TEST_F(PressureSegFields, OperationsHaveTheSignaturesOfTheBoundary) {
    using Insert = void (PressureSeg::*)(AcGePoint3d, AcDbObjectId);
    using InsertValue = void (PressureSeg::*)(AcGePoint3d, AcDbObjectId, double);
    EXPECT_TRUE((kIs<decltype(&PressureSeg::GetSearchPoint), AcGePoint3d (PressureSeg::*)()>));
    EXPECT_TRUE((kIs<decltype(&PressureSeg::GetBeginPoint), AcGePoint3d (PressureSeg::*)()>));
    EXPECT_TRUE((kIs<decltype(&PressureSeg::InsertMeterWell), Insert>));
    EXPECT_TRUE((kIs<decltype(&PressureSeg::InsertValveWell), Insert>));
    EXPECT_TRUE((kIs<decltype(&PressureSeg::InsertOutputPoint), InsertValue>));
    EXPECT_TRUE((kIs<decltype(&PressureSeg::PtOnSeg), int (PressureSeg::*)(AcGePoint3d)>));
    EXPECT_TRUE((kIs<decltype(&PressureSeg::GetLength), double (PressureSeg::*)()>));
    EXPECT_TRUE((kIs<decltype(&PressureSeg::GetAnnnotateVector), AcGeVector3d (PressureSeg::*)()>));
    EXPECT_TRUE((kIs<decltype(&PressureSeg::GetAnnoatePoint), AcGePoint3d (PressureSeg::*)()>));
}

TEST_F(PressureSegFields, ResultObjectIsEmptyAndHasNoRoot) {
    const PressureSearchObject object;
    EXPECT_EQ(object.rootSeg, -1);
    EXPECT_EQ(object.segs.GetSize(), 0);
    EXPECT_TRUE(std::less<>()(static_cast<const void*>(&object.rootSeg),
                              static_cast<const void*>(&object.segs)));
}

TEST_F(PressureSegFields, ResultObjectHasItsRunTimeClassRecord) {
    const CRuntimeClass* record = PressureSearchObject::GetThisClass();
    ASSERT_NE(record, nullptr);
    EXPECT_EQ(record, &PressureSearchObject::classPressureSearchObject);
    EXPECT_STREQ(record->m_lpszClassName, "PressureSearchObject");
    EXPECT_EQ(record->m_nObjectSize, static_cast<int>(sizeof(PressureSearchObject)));
    EXPECT_EQ(record->m_wSchema, 0xFFFFU);
    EXPECT_EQ(record->m_pfnCreateObject, nullptr);
    EXPECT_EQ(PressureSearchObject::_GetBaseClass(), SearchObject::GetThisClass());
    const std::unique_ptr<SearchObject> object = std::make_unique<PressureSearchObject>();
    EXPECT_EQ(object->GetRuntimeClass(), record);
    EXPECT_TRUE(object->IsKindOf(RUNTIME_CLASS(SearchObject)));
}

} // namespace module_tests
