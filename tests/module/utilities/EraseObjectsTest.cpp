#include "UtilitiesTest.h"

#include "utilities/EraseObjects.h"

namespace module_tests {
namespace {

class EraseObjectsTest : public UtilitiesTest {
protected:
    AcDbObjectId line = addLine({0, 0, 0}, {1, 0, 0});
    const std::string handle = handleOf(line);

    /// What erasing one entity by its id does.
    static Lines erasing(const std::string& of) {
        return {"lock kWrite", "open write " + of, "erase " + of, "close " + of, "unlock"};
    }
};

TEST_F(EraseObjectsTest, EntityIsErasedUnderAWriteLock) {
    forget();
    EXPECT_EQ(PelEraseObject(line), 1);
    EXPECT_EQ(events(), erasing(handle));
    EXPECT_TRUE(isErased(line));
}

TEST_F(EraseObjectsTest, EntityThatCannotBeOpenedStaysAndTheLockIsGivenBack) {
    AcDbLine* reader = nullptr;
    ASSERT_EQ(acdbOpenObject(reader, line, AcDb::kForRead), Acad::eOk);
    forget();
    EXPECT_EQ(PelEraseObject(line), 0);
    EXPECT_EQ(events(), (Lines{"lock kWrite", "unlock"}));
    reader->close();
    EXPECT_FALSE(isErased(line));
    EXPECT_EQ(PelEraseObject(AcDbObjectId()), 0);
}

TEST_F(EraseObjectsTest, NameIsErasedWithoutALockAndZeroed) {
    ads_name name;
    ASSERT_EQ(acdbGetAdsName(name, line), Acad::eOk);
    forget();
    EXPECT_EQ(PelEraseObject(name), 1);
    EXPECT_EQ(events(), (Lines{"open write " + handle, "erase " + handle, "close " + handle}));
    EXPECT_EQ(name[0], 0);
    EXPECT_EQ(name[1], 0);
    EXPECT_TRUE(isErased(line));
}

TEST_F(EraseObjectsTest, NameIsZeroedAlsoWhenTheErasingFails) {
    ads_name name;
    ASSERT_EQ(acdbGetAdsName(name, line), Acad::eOk);
    AcDbLine* reader = nullptr;
    ASSERT_EQ(acdbOpenObject(reader, line, AcDb::kForRead), Acad::eOk);
    EXPECT_EQ(PelEraseObject(name), 0);
    reader->close();
    EXPECT_EQ(name[0], 0);
    EXPECT_EQ(name[1], 0);
    EXPECT_FALSE(isErased(line));
}

TEST_F(EraseObjectsTest, NameOfNothingStaysAsItWas) {
    ads_name name = {12345, 6};
    EXPECT_EQ(PelEraseObject(name), 0);
    EXPECT_EQ(name[0], 12345);
    EXPECT_EQ(name[1], 6);
}

TEST_F(EraseObjectsTest, ListIsErasedOneByOneWhateverFails) {
    const AcDbObjectId other = addLine({2, 0, 0}, {3, 0, 0});
    AcDbObjectIdArray ids;
    ids.append(other);
    ids.append(AcDbObjectId());
    ids.append(line);
    forget();
    PelEraseObject(ids);
    Lines expected = erasing(handleOf(other));
    expected.insert(expected.end(), {"lock kWrite", "unlock"});
    const Lines last = erasing(handle);
    expected.insert(expected.end(), last.begin(), last.end());
    EXPECT_EQ(events(), expected);
    EXPECT_EQ(entities(), Ids{});
}

} // namespace
} // namespace module_tests
