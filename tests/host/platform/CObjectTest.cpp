#include "platform/CObject.h"
#include "platform/CPoint.h"
#include "platform/CWnd.h"
#include "platform/PlatformException.h"

#include <gtest/gtest.h>

#include <memory>
#include <type_traits>

class Animal : public CObject {
    DECLARE_DYNAMIC(Animal)
};
class Dog : public Animal {
    DECLARE_DYNAMIC(Dog)
    int tail = 1;
};
IMPLEMENT_DYNAMIC(Animal, CObject)
IMPLEMENT_DYNAMIC(Dog, Animal)

namespace {

static_assert(!std::is_copy_constructible_v<CObject>);
static_assert(!std::is_copy_assignable_v<CObject>);
static_assert(!std::is_copy_constructible_v<Animal>);

TEST(CObject, RecordsDescribeTheirClasses) {
    EXPECT_STREQ(Dog::classDog.m_lpszClassName, "Dog");
    EXPECT_EQ(Dog::classDog.m_nObjectSize, static_cast<int>(sizeof(Dog)));
    EXPECT_EQ(Dog::classDog.m_wSchema, 0xFFFFU);
    EXPECT_EQ(Dog::classDog.CreateObject(), nullptr);
    EXPECT_EQ(Dog::classDog.m_pNextClass, nullptr);
    EXPECT_STREQ(RUNTIME_CLASS(CObject)->m_lpszClassName, "CObject");
    EXPECT_EQ(RUNTIME_CLASS(Dog), &Dog::classDog);
}

TEST(CObject, TheChainOfBasesEndsAtTheRoot) {
    EXPECT_EQ(Dog::_GetBaseClass(), &Animal::classAnimal);
    EXPECT_EQ(Animal::_GetBaseClass(), &CObject::classCObject);
    EXPECT_EQ(CObject::_GetBaseClass(), nullptr);
    EXPECT_EQ(CObject::classCObject.m_pfnGetBaseClass, nullptr);
}

TEST(CObject, DerivationFollowsTheChain) {
    EXPECT_TRUE(Dog::classDog.IsDerivedFrom(RUNTIME_CLASS(Dog)));
    EXPECT_TRUE(Dog::classDog.IsDerivedFrom(RUNTIME_CLASS(Animal)));
    EXPECT_TRUE(Dog::classDog.IsDerivedFrom(RUNTIME_CLASS(CObject)));
    EXPECT_FALSE(Animal::classAnimal.IsDerivedFrom(RUNTIME_CLASS(Dog)));
    EXPECT_FALSE(Dog::classDog.IsDerivedFrom(RUNTIME_CLASS(CWnd)));
    EXPECT_FALSE(Dog::classDog.IsDerivedFrom(nullptr));
}

TEST(CObject, ObjectsKnowTheirClassThroughABasePointer) {
    const std::unique_ptr<CObject> object = std::make_unique<Dog>();
    EXPECT_EQ(object->GetRuntimeClass(), RUNTIME_CLASS(Dog));
    EXPECT_TRUE(object->IsKindOf(RUNTIME_CLASS(Animal)));
    EXPECT_FALSE(object->IsKindOf(RUNTIME_CLASS(CWnd)));
    EXPECT_FALSE(object->IsKindOf(nullptr));
}

TEST(CWnd, GivesBackWhereItWasMoved) {
    CWnd window;
    CRect rect;
    window.MoveWindow(10, 20, 300, 200);
    window.GetWindowRect(&rect);
    EXPECT_EQ(rect, CRect(10, 20, 310, 220));
    EXPECT_EQ(rect.Width(), 300);
    EXPECT_EQ(rect.Height(), 200);
    const CRect other(1, 2, 3, 4);
    window.MoveWindow(&other, FALSE);
    window.GetWindowRect(&rect);
    EXPECT_EQ(rect, other);
    EXPECT_THROW(window.GetWindowRect(nullptr), CInvalidArgException);
    EXPECT_THROW(window.MoveWindow(nullptr), CInvalidArgException);
}

TEST(CPoint, StartsAtZeroAndMoves) {
    CPoint point;
    EXPECT_EQ(point, CPoint(0, 0));
    point.SetPoint(3, 4);
    point.Offset(-1, 2);
    EXPECT_EQ(point.x, 2);
    EXPECT_EQ(point.y, 6);
}

} // namespace
