#include "UtilitiesTest.h"

namespace module_tests {

void UtilitiesTest::TearDown() {
    const host::LiveCounts after = host::liveCounts();
    EXPECT_EQ(after.openObjects, before_.openObjects);
    EXPECT_EQ(after.selectionSets, before_.selectionSets);
    EXPECT_EQ(after.resultBuffers, before_.resultBuffers);
    EXPECT_EQ(after.locks, before_.locks);
}

Lines UtilitiesTest::events() const {
    Lines found;
    for (const std::wstring& line : recorder_.lines()) {
        found.push_back(host_text::toUtf8(line));
    }
    return found;
}

Lines UtilitiesTest::events(const std::string& word) const {
    Lines found;
    for (const std::string& line : events()) {
        if (line.rfind(word + " ", 0) == 0 || line == word) {
            found.push_back(line);
        }
    }
    return found;
}

void UtilitiesTest::setVariable(const wchar_t* name, int value) {
    resbuf item{};
    ASSERT_EQ(acedGetVar(name, &item), RTNORM);
    item.resval.rint = static_cast<short>(value);
    ASSERT_EQ(acedSetVar(name, &item), RTNORM);
    forget();
}

int UtilitiesTest::variable(const wchar_t* name) {
    resbuf item{};
    EXPECT_EQ(acedGetVar(name, &item), RTNORM);
    return item.resval.rint;
}

std::string UtilitiesTest::handleOf(const AcDbObjectId& id) const {
    ACHAR text[17]; // sixteen digits and the end
    id.handle().getIntoAsciiBuffer(text);
    return host_text::toUtf8(text);
}

AcDbObjectId UtilitiesTest::addLine(const AcGePoint3d& from, const AcGePoint3d& to) {
    return drawing.addCurve(new AcDbLine(from, to));
}

Ends UtilitiesTest::endsOf(const AcDbObjectId& line) const {
    AcDbLine* opened = nullptr;
    EXPECT_EQ(acdbOpenObject(opened, line, AcDb::kForRead), Acad::eOk);
    if (opened == nullptr) {
        return {};
    }
    Ends ends{opened->startPoint(), opened->endPoint()};
    opened->close();
    return ends;
}

Ids UtilitiesTest::entities() const {
    Ids found;
    ads_name set;
    if (acedSSGet(L"X", nullptr, nullptr, nullptr, set) != RTNORM) {
        return found;
    }
    Adesk::Int32 length = 0;
    acedSSLength(set, &length);
    for (Adesk::Int32 i = 0; i < length; ++i) {
        ads_name name;
        AcDbObjectId id;
        EXPECT_EQ(acedSSName(set, i, name), RTNORM);
        EXPECT_EQ(acdbGetObjectId(id, name), Acad::eOk);
        found.push_back(id);
    }
    acedSSFree(set);
    return found;
}

void UtilitiesTest::select(const Ids& ids, ads_name set) const {
    ASSERT_EQ(acedSSAdd(nullptr, nullptr, set), RTNORM);
    for (const AcDbObjectId& id : ids) {
        ads_name name;
        ASSERT_EQ(acdbGetAdsName(name, id), Acad::eOk);
        ASSERT_EQ(acedSSAdd(name, set, set), RTNORM);
    }
}

::testing::AssertionResult sameEnds(const Ends& actual, const AcGePoint3d& start,
                                    const AcGePoint3d& end) {
    const ::testing::AssertionResult starts = samePoint(actual.first, start);
    return starts ? samePoint(actual.second, end) : starts;
}

} // namespace module_tests
