// The types of fields and the signatures that sibling modules link to. Most of it is settled when
// this file compiles.

#include "TKVltSearchModule18.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <type_traits>

namespace module_tests {
namespace {

template<class Record>
constexpr bool kCopiesFromNonConstOnly =
    std::is_constructible_v<Record, Record&> && !std::is_constructible_v<Record, const Record&>;
template<class Record>
constexpr bool kAssignsFromConst = std::is_assignable_v<Record&, const Record&>;
template<class Record>
constexpr bool kHasVirtualDestructor = std::has_virtual_destructor_v<Record>;

template<class Actual, class Expected>
constexpr bool kIs = std::is_same_v<Actual, Expected>;

TEST(RecordSignatures, CopyConstructorsTakeANonConstReference) {
    EXPECT_TRUE(kCopiesFromNonConstOnly<_Entity>);
    EXPECT_TRUE(kCopiesFromNonConstOnly<_Pipe>);
    EXPECT_TRUE(kCopiesFromNonConstOnly<_Block>);
    EXPECT_TRUE(kCopiesFromNonConstOnly<_Text>);
    EXPECT_TRUE(kCopiesFromNonConstOnly<Well>);
    EXPECT_TRUE(kCopiesFromNonConstOnly<GravitySeg>);
}

TEST(RecordSignatures, AssignmentTakesAConstReferenceExceptForSegments) {
    EXPECT_TRUE(kAssignsFromConst<_Entity>);
    EXPECT_TRUE(kAssignsFromConst<_Pipe>);
    EXPECT_TRUE(kAssignsFromConst<_Block>);
    EXPECT_TRUE(kAssignsFromConst<_Text>);
    EXPECT_TRUE(kAssignsFromConst<Well>);
    EXPECT_FALSE(kAssignsFromConst<GravitySeg>);
    EXPECT_TRUE((std::is_assignable_v<GravitySeg&, GravitySeg&>));
}

TEST(RecordSignatures, SnapshotRecordsHaveAVirtualDestructorAndSegmentsHaveNone) {
    EXPECT_TRUE(kHasVirtualDestructor<_Entity>);
    EXPECT_TRUE(kHasVirtualDestructor<_Pipe>);
    EXPECT_TRUE(kHasVirtualDestructor<_Block>);
    EXPECT_TRUE(kHasVirtualDestructor<_Text>);
    EXPECT_TRUE(kHasVirtualDestructor<Well>);
    EXPECT_FALSE(std::is_polymorphic_v<GravitySeg>);
}

TEST(RecordSignatures, BasesAreThoseOfTheFamily) {
    EXPECT_TRUE((std::is_base_of_v<_Entity, _Pipe>));
    EXPECT_TRUE((std::is_base_of_v<_Entity, _Block>));
    EXPECT_TRUE((std::is_base_of_v<_Entity, _Text>));
    EXPECT_TRUE((std::is_base_of_v<_Block, Well>));
    EXPECT_TRUE((std::is_base_of_v<CObject, SearchObject>));
    EXPECT_TRUE((std::is_base_of_v<SearchObject, GravitySearchObject>));
}

TEST(RecordSignatures, FieldsOfTheCommonBaseHaveTheTypesOfTheBoundary) {
    EXPECT_TRUE((kIs<decltype(_Entity::id), AcDbObjectId>));
    EXPECT_TRUE((kIs<decltype(_Entity::layer), CString>));
    EXPECT_TRUE((kIs<decltype(_Entity::systemName), CString>));
    EXPECT_TRUE((kIs<decltype(_Entity::valid), std::int32_t>));
}

TEST(RecordSignatures, TextFieldsHaveTheTypesOfTheBoundary) {
    EXPECT_TRUE((kIs<decltype(_Text::height), double>));
    EXPECT_TRUE((kIs<decltype(_Text::widthFactor), double>));
    EXPECT_TRUE((kIs<decltype(_Text::position), AcGePoint3d>));
    EXPECT_TRUE((kIs<decltype(_Text::handle), CString>));
    EXPECT_TRUE((kIs<decltype(_Text::text), CString>));
    EXPECT_TRUE((kIs<decltype(_Text::rotation), double>));
    EXPECT_TRUE((kIs<decltype(_Text::width), double>));
    EXPECT_TRUE((kIs<decltype(_Text::horizontalMode), std::int32_t>));
    EXPECT_TRUE((kIs<decltype(_Text::verticalMode), std::int32_t>));
}

TEST(RecordSignatures, PipeFieldsHaveTheTypesOfTheBoundary) {
    EXPECT_TRUE((kIs<decltype(_Pipe::startPoint), AcGePoint3d>));
    EXPECT_TRUE((kIs<decltype(_Pipe::endPoint), AcGePoint3d>));
    EXPECT_TRUE((kIs<decltype(_Pipe::direction), AcGeVector3d>));
    EXPECT_TRUE((kIs<decltype(_Pipe::angle), double>));
    EXPECT_TRUE((kIs<decltype(_Pipe::isPolyline), std::int32_t>));
    EXPECT_TRUE((kIs<decltype(_Pipe::isArc), std::int32_t>));
    EXPECT_TRUE((kIs<decltype(_Pipe::line), AcGeLineSeg3d>));
    EXPECT_TRUE((kIs<decltype(_Pipe::arc), AcGeCircArc3d>));
    EXPECT_TRUE((kIs<decltype(_Pipe::orientationFlag), std::int32_t>));
}

TEST(RecordSignatures, BlockFieldsHaveTheTypesOfTheBoundary) {
    EXPECT_TRUE((kIs<decltype(_Block::note), CString>));
    EXPECT_TRUE((kIs<decltype(_Block::handle), CString>));
    EXPECT_TRUE((kIs<decltype(_Block::position), AcGePoint3d>));
    EXPECT_TRUE((kIs<decltype(_Block::scale), AcGeScale3d>));
    EXPECT_TRUE((kIs<decltype(_Block::extents), AcDbExtents>));
    EXPECT_TRUE((kIs<decltype(_Block::rotation), double>));
    EXPECT_TRUE((kIs<decltype(_Block::radius), double>));
    EXPECT_TRUE((kIs<decltype(_Block::isSquareWell), std::int32_t>));
}

TEST(RecordSignatures, WellFieldsHaveTheTypesOfTheBoundary) {
    EXPECT_TRUE((kIs<decltype(Well::isWell), std::int32_t>));
    EXPECT_TRUE((kIs<decltype(Well::nodeEntity), AcDbObjectId>));
    EXPECT_TRUE((kIs<decltype(Well::nodePoint), AcGePoint3d>));
    EXPECT_TRUE((kIs<decltype(Well::mergedEntities), AcArray<AcDbObjectId>>));
    EXPECT_TRUE((kIs<decltype(Well::nodeRadius), double>));
    EXPECT_TRUE((kIs<decltype(Well::inSeg), std::int32_t>));
    EXPECT_TRUE((kIs<decltype(Well::outSegs), CArray<int, int>>));
    EXPECT_TRUE((kIs<decltype(Well::number), CString>));
    EXPECT_TRUE((kIs<decltype(Well::extraList), CArray<int, int>>));
    EXPECT_TRUE((kIs<decltype(Well::extraPoint), double[3]>));
}

TEST(RecordSignatures, SegmentFieldsHaveTheTypesOfTheBoundary) {
    EXPECT_TRUE((kIs<decltype(GravitySeg::pipeIds), AcArray<AcDbObjectId>>));
    EXPECT_TRUE((kIs<decltype(GravitySeg::startWell), std::int32_t>));
    EXPECT_TRUE((kIs<decltype(GravitySeg::endWell), std::int32_t>));
    EXPECT_TRUE((kIs<decltype(GravitySeg::startPoint), AcGePoint3d>));
    EXPECT_TRUE((kIs<decltype(GravitySeg::endPoint), AcGePoint3d>));
    EXPECT_TRUE((kIs<decltype(GravitySeg::startEntity), AcDbObjectId>));
    EXPECT_TRUE((kIs<decltype(GravitySeg::endEntity), AcDbObjectId>));
    EXPECT_TRUE((kIs<decltype(GravitySeg::startElevation), double>));
    EXPECT_TRUE((kIs<decltype(GravitySeg::endElevation), double>));
    EXPECT_TRUE((kIs<decltype(GravitySeg::slope), double>));
    EXPECT_TRUE((kIs<decltype(GravitySeg::diameter), std::int32_t>));
    EXPECT_TRUE((kIs<decltype(GravitySeg::flowText), CString>));
    EXPECT_TRUE((kIs<decltype(GravitySeg::material), CString>));
    EXPECT_TRUE((kIs<decltype(GravitySeg::systemName), CString>));
    EXPECT_TRUE((kIs<decltype(GravitySeg::extraValue1), double>));
    EXPECT_TRUE((kIs<decltype(GravitySeg::extraValue2), double>));
    EXPECT_TRUE((kIs<decltype(GravitySeg::extraValue3), double>));
    EXPECT_TRUE((kIs<decltype(GravitySeg::extraValue4), double>));
    EXPECT_TRUE((kIs<decltype(GravitySeg::extraValue5), double>));
    EXPECT_TRUE((kIs<decltype(GravitySeg::flowReversed), std::int32_t>));
    EXPECT_TRUE((kIs<decltype(GravitySeg::length), double>));
    EXPECT_TRUE((kIs<decltype(GravitySeg::annotatePoint), AcGePoint3d>));
    EXPECT_TRUE((kIs<decltype(GravitySeg::annotateVector), AcGeVector3d>));
}

TEST(RecordSignatures, ResultFieldsHaveTheTypesOfTheBoundary) {
    EXPECT_TRUE((kIs<decltype(GravitySearchObject::wells), CArray<Well, Well&>>));
    EXPECT_TRUE((kIs<decltype(GravitySearchObject::segs), CArray<GravitySeg, GravitySeg&>>));
    EXPECT_TRUE((kIs<decltype(GravitySearchObject::pathSegs), CArray<int, int>>));
    EXPECT_TRUE((kIs<decltype(GravitySearchObject::pathWells), CArray<int, int>>));
    EXPECT_TRUE((kIs<decltype(GravitySearchObject::rootWell), int>));
}

TEST(RecordSignatures, FunctionsHaveTheSignaturesOfTheBoundary) {
    EXPECT_TRUE((kIs<decltype(&GetSearchInformation),
                     int (*)(SearchObject*&, AcDbObjectId&, AcDbObjectId&, AcGePoint3d)>));
    EXPECT_TRUE((kIs<decltype(&GetGravityNetwork),
                     int (*)(GravitySearchObject*, AcDbObjectId&, AcDbObjectId&, AcGePoint3d&)>));
    EXPECT_TRUE((kIs<decltype(&PelGetDirectionSytle), int (*)(CString)>));
    EXPECT_TRUE((kIs<decltype(&PelGetSystemFlag), int (*)(CString&, const CString&)>));
}

} // namespace
} // namespace module_tests
