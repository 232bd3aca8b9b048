#include "editor/SelectionSets.h"

#include "host/database/DatabaseFixture.h"

#include "database/AcDbCircle.h"
#include "database/AcDbPolyline.h"
#include "database/AcDbText.h"
#include "database/DatabaseBuilder.h"
#include "database/SymbolTableSearch.h"

#include <vector>

namespace {

class SelectionSetsTest : public DatabaseFixture {
protected:
    SelectionSetsTest() {
        for (const ACHAR* name : {L"管道系统", L"管井系统", L"池体", L"池体系统", L"OTHER"}) {
            acdbRegApp(name);
        }
    }
    ~SelectionSetsTest() override { EXPECT_EQ(host_ed::openSelectionSets(), 0); }

    /// A line that carries data of these applications.
    AcDbObjectId addMarked(std::initializer_list<const ACHAR*> applications,
                           AcDbObjectId space = AcDbObjectId()) {
        auto line = std::make_unique<AcDbLine>();
        for (const ACHAR* application : applications) {
            resbuf* chain = acutBuildList(1001, application, 1000, L"x", 0);
            EXPECT_EQ(line->setXData(chain), Acad::eOk);
            acutRelRb(chain);
        }
        return addTo(space.isNull() ? database().modelSpaceId() : space, std::move(line));
    }

    static std::vector<AcDbObjectId> idsOf(const ads_name set) {
        std::vector<AcDbObjectId> ids;
        Adesk::Int32 length = -1;
        EXPECT_EQ(acedSSLength(set, &length), RTNORM);
        for (Adesk::Int32 i = 0; i < length; ++i) {
            ads_name name;
            EXPECT_EQ(acedSSName(set, i, name), RTNORM);
            AcDbObjectId id;
            EXPECT_EQ(acdbGetObjectId(id, name), Acad::eOk);
            ids.push_back(id);
        }
        return ids;
    }

    /// What a filter selects; the chain is released and the set freed. Nothing for RTERROR.
    std::vector<AcDbObjectId> selected(resbuf* filter) {
        ads_name set = {9, 9};
        lastResult_ = acedSSGet(L"X", nullptr, nullptr, filter, set);
        acutRelRb(filter);
        if (lastResult_ != RTNORM) {
            EXPECT_EQ(lastResult_, RTERROR);
            EXPECT_EQ(set[0], 0);
            EXPECT_EQ(set[1], 0);
            return {};
        }
        std::vector<AcDbObjectId> ids = idsOf(set);
        EXPECT_FALSE(ids.empty());
        EXPECT_EQ(acedSSFree(set), RTNORM);
        return ids;
    }

    bool isMalformed(resbuf* filter) { return selected(filter).empty() && lastResult_ == RTERROR; }

    using Ids = std::vector<AcDbObjectId>;
    int lastResult_ = 0;
};

TEST_F(SelectionSetsTest, TheNetworkFilterTakesThreeApplications) {
    const AcDbObjectId pipe = addMarked({L"管道系统", L"OTHER"});
    addMarked({});
    addMarked({L"OTHER"});
    const AcDbObjectId tank = addMarked({L"池体"});
    addMarked({L"池体系统"});
    const AcDbObjectId well = addMarked({L"管井系统"});
    const auto filter = [] {
        return acutBuildList(-4, L"<or", -3, 1001, L"管井系统", -3, 1001, L"管道系统", -3, 1001,
                             L"池体", -4, L"or>", 0);
    };
    EXPECT_EQ(selected(filter()), (Ids{pipe, tank, well}));
}

TEST_F(SelectionSetsTest, NothingFoundIsAnError) {
    addLine();
    EXPECT_TRUE(selected(acutBuildList(-3, 1001, L"管道系统", 0)).empty());
    EXPECT_EQ(lastResult_, RTERROR);
    EXPECT_EQ(RTERROR, -5001);
}

TEST_F(SelectionSetsTest, ApplicationNamesTakeWildCardsAndAllMustBeThere) {
    const AcDbObjectId both = addMarked({L"管道系统", L"OTHER"});
    const AcDbObjectId well = addMarked({L"管井系统"});
    const AcDbObjectId tank = addMarked({L"池体"});
    EXPECT_EQ(selected(acutBuildList(-3, 1001, L"管?系统", 0)), (Ids{both, well}));
    EXPECT_EQ(selected(acutBuildList(-3, 1001, L"池*,other", 0)), (Ids{both, tank}));
    EXPECT_EQ(selected(acutBuildList(-3, 1001, L"管*", 1001, L"O*", 0)), (Ids{both}));
    EXPECT_EQ(selected(acutBuildList(-3, RTLB, 1001, L"管*", RTLE, 0)), (Ids{both, well}));
}

// Entities with the same applications pass alike only where nothing else is asked for.
TEST_F(SelectionSetsTest, ApplicationsBesideOtherConditionsAndUnderOperators) {
    const AcDbObjectId first = addMarked({L"管道系统"});
    const AcDbObjectId second = addMarked({L"管道系统"});
    const AcDbObjectId both = addMarked({L"管道系统", L"OTHER"});
    const AcDbObjectId bare = addMarked({});
    ACHAR handle[17];
    second.handle().getIntoAsciiBuffer(handle);
    EXPECT_EQ(selected(acutBuildList(-3, 1001, L"管道系统", 5, handle, 0)), (Ids{second}));
    EXPECT_EQ(selected(acutBuildList(-4, L"<not", -3, 1001, L"管道系统", -4, L"not>", 0)),
              (Ids{bare}));
    EXPECT_EQ(selected(acutBuildList(-4, L"<xor", -3, 1001, L"管道系统", -3, 1001, L"OTHER", -4,
                                     L"xor>", 0)),
              (Ids{first, second}));
    EXPECT_EQ(selected(acutBuildList(-3, 1001, L"管道系统", -3, 1001, L"OTHER", 0)), (Ids{both}));
}

TEST_F(SelectionSetsTest, ApplicationsThatWereTakenAwayDoNotCount) {
    const AcDbObjectId id = addMarked({L"管道系统"});
    EXPECT_EQ(selected(acutBuildList(-3, 1001, L"管道系统", 0)), (Ids{id}));
    AcDbLine* line = nullptr;
    ASSERT_EQ(acdbOpenObject(line, id, AcDb::kForWrite), Acad::eOk);
    resbuf* chain = acutBuildList(1001, L"管道系统", 0);
    line->setXData(chain);
    acutRelRb(chain);
    line->close();
    EXPECT_TRUE(selected(acutBuildList(-3, 1001, L"管道系统", 0)).empty());
}

TEST_F(SelectionSetsTest, TheOrderIsThatOfTheDrawing) {
    const AcDbObjectId paper = database().spaceIds()[1];
    const AcDbObjectId block = addBlock(L"WELL");
    const AcDbObjectId onPaper = addTo(paper, std::make_unique<AcDbLine>());
    addTo(block, std::make_unique<AcDbLine>());
    const AcDbObjectId first = addLine();
    const AcDbObjectId second = addLine();
    const AcDbObjectId third = addLine();
    EXPECT_EQ(selected(nullptr), (Ids{first, second, third, onPaper}));
    AcDbLine* line = nullptr;
    ASSERT_EQ(acdbOpenObject(line, second, AcDb::kForWrite), Acad::eOk);
    line->erase();
    line->close();
    EXPECT_EQ(selected(nullptr), (Ids{first, third, onPaper}));
}

TEST_F(SelectionSetsTest, ConditionsOnTypeLayerColourAndBlock) {
    auto layer = std::make_unique<AcDbLayerTableRecord>();
    layer->setName(L"管线");
    addRecord<AcDbLayerTable>(std::move(layer));
    const AcDbObjectId block = addBlock(L"VLT_WELL_04");
    const AcDbObjectId line = addLine();
    auto circle = std::make_unique<AcDbCircle>();
    circle->setLayer(L"管线");
    circle->setColorIndex(1);
    const AcDbObjectId round = add(std::move(circle));
    const AcDbObjectId well = add(std::make_unique<AcDbBlockReference>(AcGePoint3d(), block));
    const AcDbObjectId poly = add(std::make_unique<AcDbPolyline>());
    EXPECT_EQ(selected(acutBuildList(RTDXF0, L"line", 0)), (Ids{line}));
    EXPECT_EQ(selected(acutBuildList(RTDXF0, L"*LINE,INSERT", 0)), (Ids{line, well, poly}));
    EXPECT_EQ(selected(acutBuildList(8, L"管*", 0)), (Ids{round}));
    EXPECT_EQ(selected(acutBuildList(2, L"vlt_well_##", 0)), (Ids{well}));
    EXPECT_EQ(selected(acutBuildList(62, 1, 0)), (Ids{round}));
    EXPECT_EQ(selected(acutBuildList(62, 256, RTDXF0, L"LINE", 0)), (Ids{line}));
    EXPECT_EQ(selected(acutBuildList(-4, L"<", 62, 256, 0)), (Ids{round}));
    EXPECT_EQ(selected(acutBuildList(-4, L"!=", 62, 1, 0)), (Ids{line, well, poly}));
    EXPECT_EQ(selected(acutBuildList(67, 1, 0)), Ids{});
    EXPECT_EQ(selected(acutBuildList(410, L"Model", 2, L"*", 0)), (Ids{well}));
    ACHAR handle[17];
    poly.handle().getIntoAsciiBuffer(handle);
    EXPECT_EQ(selected(acutBuildList(5, handle, 0)), (Ids{poly}));
    EXPECT_EQ(selected(acutBuildList(6, L"bylayer", RTDXF0, L"L*", 0)), (Ids{line, poly}));
}

TEST_F(SelectionSetsTest, OperatorsNest) {
    const AcDbObjectId line = addLine();
    auto circle = std::make_unique<AcDbCircle>();
    circle->setColorIndex(1);
    const AcDbObjectId red = add(std::move(circle));
    const AcDbObjectId plain = add(std::make_unique<AcDbCircle>());
    EXPECT_EQ(selected(acutBuildList(-4, L"<NOT", RTDXF0, L"CIRCLE", -4, L"NOT>", 0)), (Ids{line}));
    EXPECT_EQ(selected(acutBuildList(-4, L"<and", RTDXF0, L"CIRCLE", -4, L"<not", 62, 1, -4,
                                     L"not>", -4, L"and>", 0)),
              (Ids{plain}));
    EXPECT_EQ(selected(acutBuildList(-4, L"<xor", RTDXF0, L"CIRCLE", 62, 256, -4, L"xor>", 0)),
              (Ids{line, red}));
    EXPECT_EQ(selected(acutBuildList(-4, L"<or", 62, 1, -4, L"<and", RTDXF0, L"LINE", 62, 256, -4,
                                     L"and>", -4, L"or>", 0)),
              (Ids{line, red}));
}

TEST_F(SelectionSetsTest, AVeryDeepFilterIsWorkedOutWithoutDepth) {
    const AcDbObjectId line = addLine();
    resbuf* filter = nullptr;
    resbuf** tail = &filter;
    const auto append = [&](resbuf* item) {
        *tail = item;
        tail = &item->rbnext;
    };
    for (int i = 0; i < 200'000; ++i) {
        append(acutBuildList(-4, L"<not", 0));
    }
    append(acutBuildList(RTDXF0, L"LINE", 0));
    for (int i = 0; i < 200'000; ++i) {
        append(acutBuildList(-4, L"not>", 0));
    }
    EXPECT_EQ(selected(filter), (Ids{line}));
}

TEST_F(SelectionSetsTest, MalformedFiltersAreErrors) {
    addLine();
    EXPECT_TRUE(isMalformed(acutBuildList(-4, L"<or", RTDXF0, L"LINE", 0)));
    EXPECT_TRUE(isMalformed(acutBuildList(RTDXF0, L"LINE", -4, L"or>", 0)));
    EXPECT_TRUE(isMalformed(acutBuildList(-4, L"<or", RTDXF0, L"LINE", -4, L"and>", 0)));
    EXPECT_TRUE(isMalformed(acutBuildList(-4, L"<or", -4, L"or>", 0)));
    EXPECT_TRUE(isMalformed(acutBuildList(-4, L"<not", RTDXF0, L"LINE", 62, 256, -4, L"not>", 0)));
    EXPECT_TRUE(isMalformed(acutBuildList(-4, L"<xor", RTDXF0, L"LINE", -4, L"xor>", 0)));
    EXPECT_TRUE(isMalformed(acutBuildList(-4, L"<nor", RTDXF0, L"LINE", -4, L"nor>", 0)));
    EXPECT_TRUE(isMalformed(acutBuildList(-4, L">", RTDXF0, L"LINE", 0)));
    EXPECT_TRUE(isMalformed(acutBuildList(RTDXF0, L"LINE", -4, L">", 0)));
    EXPECT_TRUE(isMalformed(acutBuildList(-3, 0)));
    EXPECT_TRUE(isMalformed(acutBuildList(-3, RTDXF0, L"LINE", 0)));
    EXPECT_TRUE(isMalformed(acutBuildList(1001, L"OTHER", 0)));
    EXPECT_TRUE(isMalformed(acutBuildList(40, 1.0, 0)));
    EXPECT_TRUE(isMalformed(acutBuildList(999, L"x", 0)));
    EXPECT_EQ(selected(acutBuildList(RTDXF0, L"LINE", 0)).size(), 1U);
}

TEST_F(SelectionSetsTest, OtherModesAndNoDrawingAreErrors) {
    addLine();
    ads_name set;
    EXPECT_EQ(acedSSGet(L"P", nullptr, nullptr, nullptr, set), RTERROR);
    EXPECT_EQ(acedSSGet(nullptr, nullptr, nullptr, nullptr, set), RTERROR);
    const ads_point corner = {0.0, 0.0, 0.0};
    EXPECT_EQ(acedSSGet(L"X", corner, nullptr, nullptr, set), RTERROR);
    ASSERT_EQ(acedSSGet(L"_x", nullptr, nullptr, nullptr, set), RTNORM);
    EXPECT_EQ(acedSSFree(set), RTNORM);
    acdbHostApplicationServices()->setWorkingDatabase(nullptr);
    EXPECT_EQ(acedSSGet(L"X", nullptr, nullptr, nullptr, set), RTERROR);
}

TEST_F(SelectionSetsTest, AFreedOrUnknownSetIsAnError) {
    const AcDbObjectId line = addLine();
    ads_name set;
    ads_name entity;
    acdbGetAdsName(entity, line);
    ASSERT_EQ(acedSSGet(L"X", nullptr, nullptr, nullptr, set), RTNORM);
    EXPECT_EQ(acedSSMemb(entity, set), RTNORM);
    ASSERT_EQ(acedSSFree(set), RTNORM);
    EXPECT_EQ(acedSSFree(set), RTERROR);
    Adesk::Int32 length = 77;
    EXPECT_EQ(acedSSLength(set, &length), RTERROR);
    EXPECT_EQ(length, 77);
    ads_name name = {5, 6};
    EXPECT_EQ(acedSSName(set, 0, name), RTERROR);
    EXPECT_EQ(name[0], 5);
    EXPECT_EQ(acedSSMemb(entity, set), RTERROR);
    EXPECT_EQ(acedSSDel(entity, set), RTERROR);
    EXPECT_EQ(acedSSAdd(entity, set, name), RTERROR);
    EXPECT_EQ(acedSSLength(entity, &length), RTERROR);
}

TEST_F(SelectionSetsTest, SetsReadInTurnAreToldApart) {
    ads_name first;
    ads_name second;
    acdbGetAdsName(first, addLine());
    acdbGetAdsName(second, addLine());
    ads_name one;
    ads_name two;
    ASSERT_EQ(acedSSAdd(first, nullptr, one), RTNORM);
    ASSERT_EQ(acedSSAdd(second, nullptr, two), RTNORM);
    ads_name name = {0, 0};
    for (int i = 0; i < 2; ++i) {
        EXPECT_EQ(acedSSName(one, 0, name), RTNORM);
        EXPECT_EQ(name[0], first[0]);
        EXPECT_EQ(acedSSName(two, 0, name), RTNORM);
        EXPECT_EQ(name[0], second[0]);
    }
    EXPECT_EQ(acedSSFree(two), RTNORM);
    EXPECT_EQ(acedSSName(two, 0, name), RTERROR);
    EXPECT_EQ(acedSSName(one, 0, name), RTNORM);
    EXPECT_EQ(name[0], first[0]);
    EXPECT_EQ(acedSSFree(one), RTNORM);
    EXPECT_EQ(acedSSName(one, 0, name), RTERROR);
    ASSERT_EQ(acedSSAdd(second, nullptr, two), RTNORM);
    EXPECT_EQ(acedSSName(one, 0, name), RTERROR);
    EXPECT_EQ(acedSSName(two, 0, name), RTNORM);
    EXPECT_EQ(name[0], second[0]);
    EXPECT_EQ(acedSSFree(two), RTNORM);
}

TEST_F(SelectionSetsTest, NamesAreReadWithinTheSet) {
    addLine();
    ads_name set;
    ASSERT_EQ(acedSSGet(L"X", nullptr, nullptr, nullptr, set), RTNORM);
    ads_name name = {5, 6};
    EXPECT_EQ(acedSSName(set, -1, name), RTERROR);
    EXPECT_EQ(acedSSName(set, 1, name), RTERROR);
    EXPECT_EQ(name[1], 6);
    long length = 0;
    EXPECT_EQ(acedSSLength(set, &length), RTNORM);
    EXPECT_EQ(length, 1);
    acedSSFree(set);
}

TEST_F(SelectionSetsTest, SetsAreFilledByHand) {
    ads_name first;
    ads_name second;
    acdbGetAdsName(first, addLine());
    acdbGetAdsName(second, addLine());
    ads_name set;
    ASSERT_EQ(acedSSAdd(nullptr, nullptr, set), RTNORM);
    Adesk::Int32 length = -1;
    acedSSLength(set, &length);
    EXPECT_EQ(length, 0);
    ads_name result = {0, 0};
    EXPECT_EQ(acedSSAdd(second, set, result), RTNORM);
    EXPECT_EQ(result[0], set[0]);
    EXPECT_EQ(acedSSAdd(first, set, set), RTNORM);
    EXPECT_EQ(acedSSAdd(second, set, set), RTNORM);
    acedSSLength(set, &length);
    EXPECT_EQ(length, 2);
    EXPECT_EQ(idsOf(set)[0].asOldId(), second[0]);
    EXPECT_EQ(acedSSDel(second, set), RTNORM);
    EXPECT_EQ(acedSSDel(second, set), RTERROR);
    EXPECT_EQ(acedSSMemb(second, set), RTERROR);
    EXPECT_EQ(idsOf(set).size(), 1U);
    ads_name alone;
    EXPECT_EQ(acedSSAdd(first, nullptr, alone), RTNORM);
    EXPECT_NE(alone[0], set[0]);
    acedSSFree(alone);
    acedSSFree(set);
    const ads_name nothing = {123456, 0};
    EXPECT_EQ(acedSSAdd(nothing, nullptr, alone), RTERROR);
}

// What was selected last stays as it was when the set is changed, whichever way and first of all.
TEST_F(SelectionSetsTest, ASetThatChangesLeavesWhatWasSelectedLast) {
    const AcDbObjectId first = addLine({0, 0, 0}, {1, 0, 0});
    const AcDbObjectId second = addLine({0, 1, 0}, {1, 1, 0});
    const auto select = [](const ACHAR* mode, ads_name set) {
        ASSERT_EQ(acedSSGet(mode, nullptr, nullptr, nullptr, set), RTNORM);
    };
    ads_name grown;
    select(L"X", grown);
    const AcDbObjectId third = addLine({0, 2, 0}, {1, 2, 0});
    ads_name name;
    acdbGetAdsName(name, third);
    EXPECT_EQ(acedSSAdd(name, grown, grown), RTNORM);
    EXPECT_EQ(idsOf(grown), (std::vector<AcDbObjectId>{first, second, third}));
    ads_name shrunk;
    select(L"P", shrunk);
    EXPECT_EQ(idsOf(shrunk), (std::vector<AcDbObjectId>{first, second}));
    acdbGetAdsName(name, first);
    EXPECT_EQ(acedSSDel(name, shrunk), RTNORM);
    EXPECT_EQ(idsOf(shrunk), (std::vector<AcDbObjectId>{second}));
    ads_name again;
    select(L"P", again);
    EXPECT_EQ(idsOf(again), (std::vector<AcDbObjectId>{first, second}));
    for (ads_name* set : {&grown, &shrunk, &again}) {
        acedSSFree(*set);
    }
}

TEST_F(SelectionSetsTest, TakingOutWhileWalkingKeepsTheRestInOrder) {
    Ids ids;
    for (int i = 0; i < 1000; ++i) {
        ids.push_back(addLine());
    }
    ads_name set;
    ASSERT_EQ(acedSSGet(L"X", nullptr, nullptr, nullptr, set), RTNORM);
    Adesk::Int32 length = 0;
    acedSSLength(set, &length);
    Ids kept;
    for (Adesk::Int32 i = 0, seen = 0; i < length; ++i, ++seen) {
        ads_name name;
        ASSERT_EQ(acedSSName(set, i, name), RTNORM);
        ASSERT_EQ(name[0], ids[static_cast<std::size_t>(seen)].asOldId());
        if (seen % 3 == 0) {
            kept.push_back(ids[static_cast<std::size_t>(seen)]);
            continue;
        }
        ASSERT_EQ(acedSSDel(name, set), RTNORM);
        --i;
        --length;
    }
    EXPECT_EQ(idsOf(set), kept);
    ads_name back;
    acdbGetAdsName(back, ids[1]);
    acedSSAdd(back, set, set);
    kept.push_back(ids[1]);
    EXPECT_EQ(idsOf(set), kept);
    acedSSFree(set);
}

TEST_F(SelectionSetsTest, AtMostOneHundredTwentyEightSetsAreOpen) {
    addLine();
    std::vector<std::int64_t> numbers;
    ads_name set;
    for (int i = 0; i < 128; ++i) {
        ASSERT_EQ(acedSSGet(L"X", nullptr, nullptr, nullptr, set), RTNORM);
        numbers.push_back(set[0]);
    }
    const std::int64_t mark = set[1];
    EXPECT_EQ(acedSSGet(L"X", nullptr, nullptr, nullptr, set), RTERROR);
    EXPECT_EQ(acedSSAdd(nullptr, nullptr, set), RTERROR);
    for (const std::int64_t number : numbers) {
        const ads_name open = {number, mark};
        EXPECT_EQ(acedSSFree(open), RTNORM);
    }
}

TEST(SelectionSpeedTest, AMillionEntitiesAreLookedAtWithoutReadingTheirData) {
    /// A source that must not be asked.
    class SilentSource : public host_db::DrawingSource {
    public:
        resbuf* readXdata(const host_dxf::SourceRange& /*range*/) const override {
            ADD_FAILURE() << "extended data were decoded";
            return nullptr;
        }
    };
    AcDbDatabase database(false);
    host_db::DatabaseBuilder builder(database);
    builder.setSource(std::make_unique<SilentSource>());
    const std::uint32_t pipe[] = {builder.application(L"管道系统"), builder.application(L"管径")};
    const std::uint32_t other[] = {builder.application(L"OTHER")};
    const std::uint32_t pipeSet = builder.applicationSet(pipe);
    const std::uint32_t otherSet = builder.applicationSet(other);
    const AcDbObjectId model = builder.ensureBlock(L"*Model_Space");
    for (int i = 0; i < 1'000'000; ++i) {
        host_db::EntityHeader header;
        header.source = {1, 2, 1, 1};
        header.applicationSet = i % 10 == 0 ? pipeSet : otherSet;
        builder.addEntity(model, std::make_unique<AcDbLine>(), header);
    }
    builder.finish();
    acdbHostApplicationServices()->setWorkingDatabase(&database);
    resbuf* filter = acutBuildList(-4, L"<or", -3, 1001, L"管井系统", -3, 1001, L"管道系统", -3,
                                   1001, L"池体", -4, L"or>", 0);
    ads_name set;
    ASSERT_EQ(acedSSGet(L"X", nullptr, nullptr, filter, set), RTNORM);
    acutRelRb(filter);
    Adesk::Int32 length = 0;
    acedSSLength(set, &length);
    EXPECT_EQ(length, 100'000);
    EXPECT_EQ(host_db::liveResultBuffers(), 0U);
    acedSSFree(set);
}

} // namespace
