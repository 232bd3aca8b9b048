#include "TKVltSearchModule18.h"

#include "module/support/DrawingBuilder.h"

#include <memory>
#include <string>
#include <type_traits>

namespace module_tests {
namespace {

class ResultObject : public DrawingTest {};

void expectRecord(const CRuntimeClass* record, const std::string& name, std::size_t size) {
    ASSERT_NE(record, nullptr);
    EXPECT_EQ(record->m_lpszClassName, name);
    EXPECT_EQ(record->m_nObjectSize, static_cast<int>(size));
    EXPECT_EQ(record->m_wSchema, 0xFFFFU);
    EXPECT_EQ(record->m_pfnCreateObject, nullptr);
    EXPECT_EQ(record->CreateObject(), nullptr);
}

TEST_F(ResultObject, SearchObjectHasItsRunTimeClassRecord) {
    expectRecord(SearchObject::GetThisClass(), "SearchObject", sizeof(SearchObject));
    EXPECT_EQ(SearchObject::GetThisClass(), &SearchObject::classSearchObject);
    EXPECT_EQ(SearchObject::_GetBaseClass(), CObject::GetThisClass());
    EXPECT_EQ(SearchObject::GetThisClass()->m_pfnGetBaseClass(), CObject::GetThisClass());
}

TEST_F(ResultObject, GravitySearchObjectHasItsRunTimeClassRecord) {
    expectRecord(GravitySearchObject::GetThisClass(), "GravitySearchObject",
                 sizeof(GravitySearchObject));
    EXPECT_EQ(GravitySearchObject::GetThisClass(), &GravitySearchObject::classGravitySearchObject);
    EXPECT_EQ(GravitySearchObject::_GetBaseClass(), SearchObject::GetThisClass());
    EXPECT_EQ(GravitySearchObject::GetThisClass()->m_pfnGetBaseClass(),
              SearchObject::GetThisClass());
}

TEST_F(ResultObject, ClassIsFoundThroughTheBase) {
    const std::unique_ptr<SearchObject> gravity = std::make_unique<GravitySearchObject>();
    const SearchObject plain;
    EXPECT_EQ(gravity->GetRuntimeClass(), GravitySearchObject::GetThisClass());
    EXPECT_EQ(plain.GetRuntimeClass(), SearchObject::GetThisClass());
    EXPECT_TRUE(gravity->IsKindOf(RUNTIME_CLASS(SearchObject)));
    EXPECT_TRUE(gravity->IsKindOf(RUNTIME_CLASS(CObject)));
    EXPECT_FALSE(plain.IsKindOf(RUNTIME_CLASS(GravitySearchObject)));
}

TEST_F(ResultObject, DestructorIsVirtual) {
    EXPECT_TRUE(std::has_virtual_destructor_v<SearchObject>);
    EXPECT_TRUE(std::has_virtual_destructor_v<GravitySearchObject>);
}

TEST_F(ResultObject, FreshGravityResultIsEmptyAndHasNoRoot) {
    const GravitySearchObject object;
    EXPECT_EQ(object.wells.GetSize(), 0);
    EXPECT_EQ(object.segs.GetSize(), 0);
    EXPECT_EQ(object.pathSegs.GetSize(), 0);
    EXPECT_EQ(object.pathWells.GetSize(), 0);
    EXPECT_EQ(object.rootWell, -1);
}

} // namespace
} // namespace module_tests
