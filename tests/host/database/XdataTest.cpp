#include "host/database/DatabaseFixture.h"

#include "database/DatabaseBuilder.h"
#include "database/SymbolTableSearch.h"
#include "database/XdataText.h"

#include <functional>
#include <map>
#include <string>
#include <vector>

namespace {

/// A file of which each object's extended data are told beforehand, under the place of its bytes.
class ToldSource : public host_db::DrawingSource {
public:
    explicit ToldSource(int* reads) : reads_(reads) {}

    void tell(std::size_t begin, host_db::ResultItems items) { told_[begin] = std::move(items); }

    resbuf* readXdata(const host_dxf::SourceRange& range) const override {
        ++*reads_;
        const auto it = told_.find(range.begin);
        return it == told_.end() ? nullptr : host_db::chainOf(it->second);
    }

private:
    int* reads_;
    std::map<std::size_t, host_db::ResultItems> told_;
};

class XdataTest : public DatabaseFixture {
protected:
    AcDbLine* openLine(AcDb::OpenMode mode) {
        AcDbLine* line = nullptr;
        EXPECT_EQ(acdbOpenObject(line, id_, mode), Acad::eOk);
        return line;
    }

    /// Sets a chain on the line and releases it.
    Acad::ErrorStatus set(resbuf* chain) {
        AcDbLine* line = openLine(AcDb::kForWrite);
        const Acad::ErrorStatus status = line->setXData(chain);
        line->close();
        acutRelRb(chain);
        return status;
    }

    /// The whole data as one text: names in braces, strings as they stand, others as a dash.
    std::wstring all(const ACHAR* application = nullptr) {
        AcDbLine* line = openLine(AcDb::kForRead);
        resbuf* chain = line->xData(application);
        line->close();
        std::wstring text;
        for (const resbuf* it = chain; it != nullptr; it = it->rbnext) {
            const bool isText = it->restype == 1000 || it->restype == 1001;
            const std::wstring value = isText ? it->resval.rstring : L"-";
            text += it->restype == 1001 ? L"{" + value + L"}" : value + L";";
        }
        acutRelRb(chain);
        return text;
    }

    AcDbObjectId id_ = addLine();
};

TEST_F(XdataTest, IsKeptForEachApplication) {
    ASSERT_EQ(acdbRegApp(L"管道系统"), RTNORM);
    ASSERT_EQ(acdbRegApp(L"管径"), RTNORM);
    EXPECT_EQ(all(), L"");
    ASSERT_EQ(set(acutBuildList(1001, L"管道系统", 1000, L"污水", 1070, 3, 0)), Acad::eOk);
    ASSERT_EQ(set(acutBuildList(1001, L"管径", 1000, L"300", 0)), Acad::eOk);
    EXPECT_EQ(all(), L"{管道系统}污水;-;{管径}300;");
    EXPECT_EQ(all(L"管径"), L"{管径}300;");
    EXPECT_EQ(all(L"管材"), L"");
    ASSERT_EQ(set(acutBuildList(1001, L"管道系统", 1000, L"雨水", 0)), Acad::eOk);
    EXPECT_EQ(all(), L"{管径}300;{管道系统}雨水;");
}

TEST_F(XdataTest, ANameAloneTakesTheApplicationsDataAway) {
    acdbRegApp(L"A");
    acdbRegApp(L"B");
    set(acutBuildList(1001, L"A", 1000, L"1", 1001, L"B", 1000, L"2", 0));
    ASSERT_EQ(set(acutBuildList(1001, L"a", 0)), Acad::eOk);
    EXPECT_EQ(all(), L"{B}2;");
    const host_db::XdataApplications& applications = database().applications();
    AcDbLine* line = openLine(AcDb::kForRead);
    EXPECT_FALSE(line->hasXdataOf(applications.find(L"A")));
    EXPECT_TRUE(line->hasXdataOf(applications.find(L"b")));
    line->close();
}

TEST_F(XdataTest, BadChainsChangeNothing) {
    acdbRegApp(L"A");
    ASSERT_EQ(set(acutBuildList(1001, L"A", 1000, L"1", 0)), Acad::eOk);
    EXPECT_EQ(set(acutBuildList(1000, L"x", 0)), Acad::eInvalidResBuf);
    EXPECT_EQ(set(acutBuildList(1001, L"A", 8, L"x", 0)), Acad::eInvalidResBuf);
    EXPECT_EQ(set(nullptr), Acad::eInvalidResBuf);
    EXPECT_EQ(set(acutBuildList(1001, L"Unknown", 1000, L"x", 0)), Acad::eRegappIdNotFound);
    const std::wstring tooLong(8200, L'x');
    EXPECT_EQ(set(acutBuildList(1001, L"A", 1000, tooLong.c_str(), 0)), Acad::eXdataSizeExceeded);
    AcDbLine* line = openLine(AcDb::kForRead);
    resbuf* chain = acutBuildList(1001, L"A", 1000, L"2", 0);
    EXPECT_EQ(line->setXData(chain), Acad::eNotOpenForWrite);
    acutRelRb(chain);
    line->close();
    EXPECT_EQ(all(), L"{A}1;");
}

TEST_F(XdataTest, BracesStandInPairsWithinAnApplication) {
    acdbRegApp(L"A");
    acdbRegApp(L"B");
    ASSERT_EQ(set(acutBuildList(1001, L"A", 1000, L"1", 0)), Acad::eOk);
    EXPECT_EQ(set(acutBuildList(1001, L"A", 1002, L"{", 0)), Acad::eInvalidResBuf);
    EXPECT_EQ(set(acutBuildList(1001, L"A", 1002, L"}", 0)), Acad::eInvalidResBuf);
    EXPECT_EQ(set(acutBuildList(1001, L"A", 1002, L"}", 1002, L"{", 0)), Acad::eInvalidResBuf);
    EXPECT_EQ(set(acutBuildList(1001, L"A", 1002, L"x", 0)), Acad::eInvalidResBuf);
    EXPECT_EQ(set(acutBuildList(1001, L"A", 1002, L"{", 1001, L"B", 1002, L"}", 0)),
              Acad::eInvalidResBuf);
    EXPECT_EQ(all(), L"{A}1;");
    EXPECT_EQ(set(acutBuildList(1001, L"A", 1002, L"{", 1002, L"{", 1000, L"2", 1002, L"}", 1002,
                                L"}", 1001, L"B", 1002, L"{", 1002, L"}", 0)),
              Acad::eOk);
    EXPECT_EQ(all(), L"{A}-;-;2;-;-;{B}-;-;");
}

/// One item of a kind and what it takes: a byte for the code, then the value as the format stores
/// it.
struct CountedItem {
    const char* name;
    int bytes;
    std::function<resbuf*()> make;
};

class XdataSizeTest : public XdataTest, public ::testing::WithParamInterface<CountedItem> {
protected:
    /// A chain of the application A, `count` of the items and a text of `letters`.
    static resbuf* chainOf(int count, int letters) {
        resbuf* chain = acutBuildList(1001, L"A", 0);
        resbuf* last = chain;
        for (int i = 0; i < count; ++i) {
            last->rbnext = GetParam().make();
            while (last->rbnext != nullptr) {
                last = last->rbnext;
            }
        }
        const std::wstring text(static_cast<std::size_t>(letters), L'x');
        last->rbnext = acutBuildList(1000, text.c_str(), 0);
        return chain;
    }
};

// The application takes 9 bytes (code and reference), a text of n letters 3 + 2n (code, length in
// two bytes, letters of two). So 100 items of b bytes leave 16383 - 9 - 100b - 3 bytes for letters,
// an odd number for an even 100b: half of it rounded down is the last that fits.
TEST_P(XdataSizeTest, ItemsCountAsTheFormatStoresThem) {
    acdbRegApp(L"A");
    const int letters = (16383 - 9 - 100 * GetParam().bytes - 3) / 2;
    EXPECT_EQ(set(chainOf(100, letters + 1)), Acad::eXdataSizeExceeded);
    EXPECT_EQ(all(), L"");
    EXPECT_EQ(set(chainOf(100, letters)), Acad::eOk);
}

resbuf* pointItem() {
    ads_point point = {1.0, 2.0, 3.0};
    return acutBuildList(1010, point, 0);
}

resbuf* chunkItem() {
    char bytes[] = "twelve bytes";
    const ads_binary chunk = {12, bytes};
    return acutBuildList(1004, &chunk, 0);
}

INSTANTIATE_TEST_SUITE_P(
    EveryKind, XdataSizeTest,
    ::testing::Values(
        CountedItem{"Real", 1 + 8, [] { return acutBuildList(1040, 0.5, 0); }},
        CountedItem{"Point", 1 + 3 * 8, pointItem},
        CountedItem{"Short", 1 + 2, [] { return acutBuildList(1070, 7, 0); }},
        CountedItem{"Long", 1 + 4, [] { return acutBuildList(1071, 7, 0); }},
        CountedItem{"Chunk", 1 + 1 + 12, chunkItem}, // its length in one byte
        CountedItem{"Handle", 1 + 8, [] { return acutBuildList(1005, L"1F", 0); }},
        CountedItem{"Layer", 1 + 8, [] { return acutBuildList(1003, L"a long name", 0); }},
        CountedItem{"Braces", 2 * (1 + 1), [] { return acutBuildList(1002, L"{", 1002, L"}", 0); }},
        CountedItem{"Text", 1 + 2 + 2 * 4, [] { return acutBuildList(1000, L"管道系统", 0); }}),
    [](const auto& instance) { return instance.param.name; });

TEST_F(XdataTest, ACloneCarriesItIntoAnotherDrawing) {
    acdbRegApp(L"A");
    set(acutBuildList(1001, L"A", 1000, L"1", 0));
    AcDbLine* line = openLine(AcDb::kForRead);
    std::unique_ptr<AcDbEntity> copy(AcDbEntity::cast(line->clone()));
    line->close();
    const AcDbDatabase other;
    const AcDbObjectId added = addTo(other.modelSpaceId(), std::move(copy));
    const auto* there = host_db::peek<AcDbLine>(added);
    ASSERT_NE(there, nullptr);
    CString text;
    bool hasApp = false;
    EXPECT_TRUE(host_db::firstXdataString(*there, L"A", text, hasApp));
    EXPECT_EQ(text, L"1");
    EXPECT_TRUE(there->hasXdataOf(other.applications().find(L"A")));
    const auto* table = host_db::peek<AcDbRegAppTable>(other.regAppTableId());
    EXPECT_TRUE(table->has(L"a"));
}

TEST_F(XdataTest, FirstTextOfAnApplication) {
    for (const ACHAR* name : {L"A", L"B", L"C"}) {
        acdbRegApp(name);
    }
    set(acutBuildList(1001, L"A", 1070, 5, 1000, L"first", 1000, L"second", 1001, L"B", 1070, 1,
                      1001, L"A", 1000, L"later", 0));
    const auto* line = host_db::peek<AcDbLine>(id_);
    CString text = L"before";
    bool hasApp = true;
    EXPECT_FALSE(host_db::firstXdataString(*line, L"C", text, hasApp));
    EXPECT_FALSE(hasApp);
    EXPECT_EQ(text, L"before");
    EXPECT_TRUE(host_db::firstXdataString(*line, L"a", text, hasApp));
    EXPECT_TRUE(hasApp);
    EXPECT_EQ(text, L"first");
    EXPECT_TRUE(host_db::firstXdataString(*line, L"B", text, hasApp));
    EXPECT_TRUE(hasApp);
    EXPECT_TRUE(text.IsEmpty());
    EXPECT_EQ(all(L"A"), L"{A}-;first;second;");
}

/// A drawing read from a file: one line whose data stand in the file's bytes.
class XdataFromFileTest : public ::testing::Test {
protected:
    XdataFromFileTest() {
        host_db::DatabaseBuilder builder(database_);
        auto source = std::make_unique<ToldSource>(&reads_);
        source->tell(100, {{1001, CString(L"A")},
                           {1070, std::int64_t{3}},
                           {1001, CString(L"B")},
                           {1000, CString(L"b1")},
                           {1001, CString(L"b")},
                           {1000, CString(L"b2")}});
        builder.setSource(std::move(source));
        const std::uint32_t used[] = {builder.application(L"B"), builder.application(L"A")};
        builder.application(L"Unused");
        host_db::EntityHeader header;
        header.handle = 0x2A;
        header.source = {100, 200, 7, 30};
        header.applicationSet = builder.applicationSet(used);
        id_ = builder.addEntity(builder.ensureBlock(L"*Model_Space"), std::make_unique<AcDbLine>(),
                                header);
        builder.finish();
    }

    const AcDbLine& line() { return *host_db::peek<AcDbLine>(id_); }

    int reads_ = 0;
    AcDbDatabase database_{false};
    AcDbObjectId id_;
};

TEST_F(XdataFromFileTest, WhatAnObjectCarriesIsKnownWithoutReading) {
    const host_db::XdataApplications& applications = database_.applications();
    EXPECT_TRUE(line().hasXdataOf(applications.find(L"a")));
    EXPECT_TRUE(line().hasXdataOf(applications.find(L"B")));
    EXPECT_FALSE(line().hasXdataOf(applications.find(L"Unused")));
    EXPECT_FALSE(line().hasXdataOf(host_db::XdataApplications::kNone));
    CString text = L"before";
    bool hasApp = true;
    EXPECT_FALSE(host_db::firstXdataString(line(), L"Unused", text, hasApp));
    EXPECT_FALSE(host_db::firstXdataString(line(), L"Never", text, hasApp));
    EXPECT_EQ(reads_, 0);
    EXPECT_EQ(text, L"before");
}

TEST_F(XdataFromFileTest, TheFirstSectionOfAnApplicationCounts) {
    CString text = L"before";
    bool hasApp = false;
    EXPECT_TRUE(host_db::firstXdataString(line(), L"b", text, hasApp));
    EXPECT_EQ(text, L"b1");
    EXPECT_TRUE(host_db::firstXdataString(line(), L"A", text, hasApp));
    EXPECT_TRUE(text.IsEmpty());
    resbuf* chain = line().xData(L"B");
    ASSERT_NE(chain, nullptr);
    EXPECT_STREQ(chain->rbnext->resval.rstring, L"b1");
    EXPECT_EQ(chain->rbnext->rbnext, nullptr);
    acutRelRb(chain);
}

TEST_F(XdataFromFileTest, SettingKeepsOtherApplicationsAndMarksTheObject) {
    EXPECT_FALSE(line().isModified());
    EXPECT_FALSE(line().isNewObject());
    AcDbLine* opened = nullptr;
    ASSERT_EQ(acdbOpenObject(opened, id_, AcDb::kForWrite), Acad::eOk);
    EXPECT_FALSE(opened->isModified());
    resbuf* chain = acutBuildList(1001, L"B", 1000, L"new", 0);
    EXPECT_EQ(opened->setXData(chain), Acad::eOk);
    acutRelRb(chain);
    opened->close();
    EXPECT_TRUE(line().isModified());
    const int before = reads_;
    CString text;
    bool hasApp = false;
    EXPECT_TRUE(host_db::firstXdataString(line(), L"B", text, hasApp));
    EXPECT_EQ(text, L"new");
    EXPECT_TRUE(host_db::firstXdataString(line(), L"A", text, hasApp));
    EXPECT_EQ(reads_, before);
}

// In the file A takes 9 bytes for its name and 3 for a 1070; both sections of B are replaced.
TEST_F(XdataFromFileTest, WhatStandsInTheFileCountsForTheLimit) {
    const auto set = [this](std::size_t letters) {
        AcDbLine* opened = nullptr;
        EXPECT_EQ(acdbOpenObject(opened, id_, AcDb::kForWrite), Acad::eOk);
        resbuf* chain = acutBuildList(1001, L"B", 1000, std::wstring(letters, L'x').c_str(), 0);
        const Acad::ErrorStatus status = opened->setXData(chain);
        acutRelRb(chain);
        opened->close();
        return status;
    };
    // 16383 - 12 - 9 - 3 leaves 16359: 8179 letters of two bytes.
    EXPECT_EQ(set(8180), Acad::eXdataSizeExceeded);
    EXPECT_EQ(set(8179), Acad::eOk);
}

TEST(XdataApplicationsTest, EqualSetsAreOne) {
    host_db::XdataApplications applications;
    const std::uint32_t a = applications.add(L"Ärger");
    EXPECT_EQ(applications.add(L"äRGER"), a);
    EXPECT_EQ(applications.name(a), L"Ärger");
    const std::uint32_t b = applications.add(L"B");
    const std::uint32_t forward[] = {a, b};
    const std::uint32_t backward[] = {b, a, b};
    EXPECT_EQ(applications.setOf(forward), applications.setOf(backward));
    EXPECT_EQ(applications.setOf({}), 0U);
    EXPECT_EQ(applications.setCount(), 2U);
    EXPECT_EQ(applications.find(L"C"), host_db::XdataApplications::kNone);
}

TEST(XdataApplicationsTest, ASetTellsItsMembersHoweverManyThereAre) {
    host_db::XdataApplications applications;
    std::vector<std::uint32_t> thirds;
    for (std::uint32_t i = 0; i < 200; ++i) {
        ASSERT_EQ(applications.add(std::to_wstring(i).c_str()), i);
        if (i % 3 == 0) {
            thirds.push_back(i);
        }
    }
    const std::uint32_t set = applications.setOf(thirds);
    for (std::uint32_t i = 0; i < 200; ++i) {
        EXPECT_EQ(applications.contains(set, i), i % 3 == 0) << i;
        EXPECT_FALSE(applications.contains(0, i)) << i;
    }
}

TEST(XdataApplicationsTest, NamesAskedForAgainAreFoundInAnySpellingUntilTheyAreForgotten) {
    host_db::XdataApplications applications;
    for (std::uint32_t i = 0; i < 300; ++i) {
        applications.add((L"app" + std::to_wstring(i)).c_str());
    }
    for (int round = 0; round < 2; ++round) {
        for (std::uint32_t i = 0; i < 300; ++i) {
            EXPECT_EQ(applications.find((L"app" + std::to_wstring(i)).c_str()), i);
            EXPECT_EQ(applications.find((L"APP" + std::to_wstring(i)).c_str()), i);
        }
    }
    applications.forget(L"App7");
    EXPECT_EQ(applications.find(L"app7"), host_db::XdataApplications::kNone);
    EXPECT_EQ(applications.find(L"APP7"), host_db::XdataApplications::kNone);
    EXPECT_EQ(applications.add(L"app7"), 300U);
    EXPECT_EQ(applications.find(L"APP7"), 300U);
    EXPECT_EQ(applications.find(nullptr), host_db::XdataApplications::kNone);
    EXPECT_EQ(applications.find(L""), host_db::XdataApplications::kNone);
}

} // namespace
