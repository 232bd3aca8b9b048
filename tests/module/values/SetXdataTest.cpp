#include "utilities/SetXdata.h"
#include "module/utilities/UtilitiesTest.h"

namespace module_tests {
namespace {

class SetXdataTest : public UtilitiesTest {
protected:
    void SetUp() override {
        UtilitiesTest::SetUp();
        forget();
    }

    /// Sets a chain on the line and releases it.
    int set(resbuf* chain) {
        const int result = PelSetXdata(line, chain);
        acutRelRb(chain);
        return result;
    }
    int set(const wchar_t* application, const std::wstring& text) {
        return set(acutBuildList(1001, application, 1000, text.c_str(), 0));
    }
    std::size_t applications() const {
        const AcDbObjectId table = drawing.database().regAppTableId();
        return host_db::peek<AcDbRegAppTable>(table)->recordIds().size();
    }
    /// The text that the line carries.
    std::string text(const wchar_t* application) const {
        CString value = L"none";
        GetXdata(line, application, value);
        return utf8(value);
    }
    std::string opened() const { return "open write " + handle; }
    std::string closed() const { return "close " + handle; }

    AcDbObjectId line = drawing.addEntity(new AcDbLine({0, 0, 0}, {1, 0, 0}));
    const std::string handle = handleOf(line);
};

TEST_F(SetXdataTest, UnknownApplicationIsRegisteredFirst) {
    const std::size_t before = applications();
    EXPECT_EQ(set(L"管径", L"300"), 1);
    EXPECT_EQ(events(), (Lines{"tblsearch APPID 管径 = none", "regapp 管径", opened(), closed()}));
    EXPECT_EQ(applications(), before + 1);
    EXPECT_EQ(text(L"管径"), "300");
}

TEST_F(SetXdataTest, KnownApplicationLeavesTheTableUnchanged) {
    ASSERT_EQ(acdbRegApp(L"管径"), RTNORM);
    const std::size_t before = applications();
    forget();
    EXPECT_EQ(set(L"管径", L"300"), 1);
    EXPECT_EQ(events(), (Lines{"tblsearch APPID 管径 = found", opened(), closed()}));
    EXPECT_EQ(applications(), before);
    EXPECT_EQ(text(L"管径"), "300");
}

TEST_F(SetXdataTest, OtherApplicationsOnTheEntityStay) {
    ASSERT_EQ(set(L"A", L"1"), 1);
    ASSERT_EQ(set(L"B", L"2"), 1);
    EXPECT_EQ(set(L"a", L"3"), 1);
    EXPECT_EQ(text(L"A"), "3");
    EXPECT_EQ(text(L"B"), "2");
}

TEST_F(SetXdataTest, ItemsOfEveryKindAreSet) {
    ads_point point = {1.0, 2.0, 3.0};
    EXPECT_EQ(set(acutBuildList(1001, L"A", 1000, L"t", 1040, 0.5, 1070, 7, 1071, 100000, 1010,
                                point, 0)),
              1);
    const auto* entity = host_db::peek<AcDbLine>(line);
    resbuf* chain = entity->xData(L"A");
    std::vector<int> codes;
    for (const resbuf* item = chain; item != nullptr; item = item->rbnext) {
        codes.push_back(item->restype);
    }
    acutRelRb(chain);
    EXPECT_EQ(codes, (std::vector<int>{1001, 1000, 1040, 1070, 1071, 1010}));
}

TEST_F(SetXdataTest, ApplicationThatCannotBeRegisteredGivesZeroBeforeAnythingIsOpened) {
    EXPECT_EQ(set(L"", L"x"), 0);
    EXPECT_EQ(events(), Lines{"tblsearch APPID  = none"});
}

TEST_F(SetXdataTest, LockOfAnotherKeepsNewApplicationsOut) {
    AcApDocument* document = acDocManager()->curDocument();
    const std::size_t before = applications();
    ASSERT_EQ(acDocManager()->lockByAnother(document, AcAp::kWrite), Acad::eOk);
    EXPECT_EQ(set(L"A", L"x"), 0);
    EXPECT_EQ(events(), Lines{"tblsearch APPID A = none"});
    ASSERT_EQ(acDocManager()->lockByAnother(document, AcAp::kNotLocked), Acad::eOk);
    EXPECT_EQ(applications(), before);
}

TEST_F(SetXdataTest, EntityInUseGivesZeroWithTheApplicationRegistered) {
    AcDbLine* reader = nullptr;
    ASSERT_EQ(acdbOpenObject(reader, line, AcDb::kForRead), Acad::eOk);
    forget();
    EXPECT_EQ(set(L"A", L"1"), 0);
    EXPECT_EQ(events(), (Lines{"tblsearch APPID A = none", "regapp A"}));
    reader->close();
    EXPECT_EQ(text(L"A"), "none");
}

TEST_F(SetXdataTest, ErasedEntityAndNullIdGiveZero) {
    drawing.erase(line);
    EXPECT_EQ(set(L"A", L"1"), 0);
    line = AcDbObjectId();
    EXPECT_EQ(set(L"A", L"1"), 0);
}

TEST_F(SetXdataTest, SecondApplicationOfTheChainMustBeRegistered) {
    EXPECT_EQ(set(acutBuildList(1001, L"A", 1000, L"1", 1001, L"B", 1000, L"2", 0)), 0);
    EXPECT_EQ(events(), (Lines{"tblsearch APPID A = none", "regapp A", opened(), closed()}));
    EXPECT_EQ(text(L"A"), "none");
    ASSERT_EQ(acdbRegApp(L"B"), RTNORM);
    EXPECT_EQ(set(acutBuildList(1001, L"A", 1000, L"1", 1001, L"B", 1000, L"2", 0)), 1);
    EXPECT_EQ(text(L"A"), "1");
    EXPECT_EQ(text(L"B"), "2");
}

// The format stores extended data as a byte for the code and the value: of an application a
// reference of 8 bytes, of a text its length in 2 bytes and 2 bytes for each UTF-16 unit. An entity
// has room for 16 KB less one, 16383 bytes. The name A and a text of n letters take
// (1 + 8) + (1 + 2 + 2n) = 12 + 2n bytes, so n is at most (16383 - 12) / 2 = 8185.5.
TEST_F(SetXdataTest, EntityCarriesSixteenKilobytesAtMost) {
    EXPECT_EQ(set(L"A", std::wstring(8186, L'x')), 0) << "9 + 3 + 16372 is one too many";
    EXPECT_EQ(events("close"), Lines{closed()});
    EXPECT_EQ(text(L"A"), "none");
    EXPECT_EQ(set(L"A", std::wstring(8185, L'x')), 1) << "16382 fit";
    EXPECT_TRUE(text(L"A") == std::string(8185, 'x'));
}

// 8000 letters of A take 12 + 16000 = 16012 bytes and leave 371 to B, whose letters have
// (371 - 12) / 2 = 179.5 places.
TEST_F(SetXdataTest, ApplicationsOfOneEntityShareTheLimit) {
    ASSERT_EQ(set(L"A", std::wstring(8000, L'x')), 1);
    EXPECT_EQ(set(L"B", std::wstring(180, L'y')), 0) << "16012 + 372 are one too many";
    EXPECT_EQ(text(L"B"), "none");
    EXPECT_EQ(set(L"B", std::wstring(179, L'y')), 1);
    EXPECT_EQ(set(L"A", L"short"), 1);
    EXPECT_EQ(text(L"B"), std::string(179, 'y'));
}

TEST_F(SetXdataTest, ChainStaysTheCallers) {
    resbuf* chain = acutBuildList(1001, L"A", 1000, L"1", 0);
    EXPECT_EQ(PelSetXdata(line, chain), 1);
    EXPECT_EQ(PelSetXdata(AcDbObjectId(), chain), 0);
    EXPECT_STREQ(chain->resval.rstring, L"A");
    EXPECT_STREQ(chain->rbnext->resval.rstring, L"1");
    EXPECT_EQ(chain->rbnext->rbnext, nullptr);
    acutRelRb(chain);
}

TEST_F(SetXdataTest, ChainWithoutANameGivesZeroAndAsksNothing) {
    EXPECT_EQ(PelSetXdata(line, nullptr), 0);
    EXPECT_EQ(set(acutBuildList(1070, 5, 1001, L"A", 0)), 0);
    EXPECT_EQ(set(acutBuildList(1040, 0.5, 0)), 0);
    EXPECT_EQ(events(), Lines{});
}

TEST_F(SetXdataTest, NameOfAnEntityIsAsGoodAsItsId) {
    ads_name name;
    ASSERT_EQ(acdbGetAdsName(name, line), Acad::eOk);
    resbuf* chain = acutBuildList(1001, L"A", 1000, L"1", 0);
    EXPECT_EQ(PelSetXdata(name, chain), 1);
    acutRelRb(chain);
    EXPECT_EQ(events(), (Lines{"tblsearch APPID A = none", "regapp A", opened(), closed()}));
    EXPECT_EQ(text(L"A"), "1");
}

TEST_F(SetXdataTest, NameOfNothingGivesZeroBeforeAnythingIsRegistered) {
    ads_name name = {12345, 6};
    resbuf* chain = acutBuildList(1001, L"A", 1000, L"1", 0);
    EXPECT_EQ(PelSetXdata(name, chain), 0);
    acutRelRb(chain);
    EXPECT_EQ(events(), Lines{});
}

} // namespace
} // namespace module_tests
