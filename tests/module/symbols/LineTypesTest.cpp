#include "host/dxf/SavedDrawing.h"
#include "module/utilities/UtilitiesTest.h"

#include "utilities/Commands.h"
#include "utilities/LineTypes.h"

namespace module_tests {
namespace {

constexpr char kProduct[] = "System/TK_VGP.LIN";
constexpr char kMetric[] = "Support/acadiso.lin";
constexpr char kImperial[] = "Support/acad.lin";

class LineTypesTest : public UtilitiesTest {
protected:
    void SetUp() override {
        UtilitiesTest::SetUp();
        // All three are there, so that none of the program's own is found in their place.
        for (const char* const file : {kProduct, kMetric, kImperial}) {
            define(file, "");
        }
        table = handleOf(drawing.database().linetypeTableId());
        forget();
    }

    void define(const char* file, const std::string& text) { drawing.folder().write(file, text); }

    /// The lines of a load, locked and unlocked around it.
    Lines load(const std::string& file, const std::string& status) const {
        return {"linetype VGP_W " + file + " = " + status, "unlock"};
    }
    Lines product(const std::string& status) const {
        return load(drawing.folder().text() + "\\System\\TK_VGP.LIN", status);
    }

    static Lines joined(std::initializer_list<Lines> parts) {
        Lines all;
        for (const Lines& part : parts) {
            all.insert(all.end(), part.begin(), part.end());
        }
        return all;
    }

    Lines look() const { return {"open read " + table, "close " + table}; }
    /// The first file is read with the table closed before the lock.
    Lines lockAfterLook() const { return joined({look(), {"lock kWrite"}}); }
    /// The host's own files are read with the table closed after it.
    Lines lockWithinLook() const { return {"open read " + table, "lock kWrite", "close " + table}; }
    Lines readRecord(const AcDbObjectId& id) const {
        return {"open read " + table, "open read " + handleOf(id), "close " + handleOf(id),
                "close " + table};
    }

    const AcDbLinetypeTableRecord& record() const {
        const auto* const found = host_db::peek<AcDbLinetypeTableRecord>(id);
        return found == nullptr ? throw std::runtime_error("no linetype") : *found;
    }

    std::string table;
    AcDbObjectId id;
};

TEST_F(LineTypesTest, PresentLinetypeCausesNoLoadAndNoLock) {
    define(kProduct, "*Continuous,other\nA,1,-1\n");
    EXPECT_EQ(PelGetLineTypeId(L"CONTINUOUS", id), 1);
    EXPECT_EQ(record().name(), L"Continuous");
    EXPECT_EQ(record().numDashes(), 0);
    EXPECT_EQ(events(), joined({look(), readRecord(id)}));
}

TEST_F(LineTypesTest, NameInNoFileIsTriedInAllThreeInTurn) {
    id = drawing.database().layerZero();
    EXPECT_EQ(PelGetLineTypeId(L"VGP_W", id), 0);
    EXPECT_EQ(id, drawing.database().layerZero());
    EXPECT_EQ(events(), joined({lockAfterLook(), product("eKeyNotFound"), lockWithinLook(),
                                load("acadiso.lin", "eKeyNotFound"), lockWithinLook(),
                                load("acad.lin", "eKeyNotFound"), look()}));
}

TEST_F(LineTypesTest, ProductFileComesFirst) {
    define(kProduct, "*VGP_W,product\nA,1,-2\n");
    define(kMetric, "*VGP_W,metric\nA,3,-4\n");
    define(kImperial, "*VGP_W,imperial\nA,5,-6\n");
    EXPECT_EQ(PelGetLineTypeId(L"VGP_W", id), 1);
    EXPECT_STREQ(record().comments(), L"product");
    EXPECT_EQ(record().dashLengthAt(0), 1.0);
    EXPECT_EQ(record().dashLengthAt(1), -2.0);
    EXPECT_EQ(events(), joined({lockAfterLook(), product("eOk"), look(), look(), readRecord(id)}));
}

TEST_F(LineTypesTest, MetricFileComesBeforeTheOther) {
    define(kMetric, "*VGP_W,metric\nA,3,-4\n");
    define(kImperial, "*VGP_W,imperial\nA,5,-6\n");
    EXPECT_EQ(PelGetLineTypeId(L"VGP_W", id), 1);
    EXPECT_STREQ(record().comments(), L"metric");
    EXPECT_EQ(events(), joined({lockAfterLook(), product("eKeyNotFound"), lockWithinLook(),
                                load("acadiso.lin", "eOk"), look(), readRecord(id)}));
}

TEST_F(LineTypesTest, LastFileIsReadWhenTheOthersLackTheName) {
    define(kImperial, "*VGP_W,imperial\nA,5,-6\n");
    EXPECT_EQ(PelGetLineTypeId(L"VGP_W", id), 1);
    EXPECT_STREQ(record().comments(), L"imperial");
    EXPECT_EQ(events(), joined({lockAfterLook(), product("eKeyNotFound"), lockWithinLook(),
                                load("acadiso.lin", "eKeyNotFound"), lockWithinLook(),
                                load("acad.lin", "eOk"), readRecord(id)}));
}

TEST_F(LineTypesTest, MissingProductFileIsPassedOver) {
    std::filesystem::remove(drawing.folder().path() / kProduct);
    define(kMetric, "*VGP_W,metric\nA,3,-4\n");
    EXPECT_EQ(PelGetLineTypeId(L"VGP_W", id), 1);
    EXPECT_EQ(events(), joined({lockAfterLook(), product("eFileNotFound"), lockWithinLook(),
                                load("acadiso.lin", "eOk"), look(), readRecord(id)}));
}

TEST_F(LineTypesTest, MalformedProductDefinitionIsPassedOver) {
    define(kProduct, "*VGP_W,product\nA,1,minus two\n");
    define(kMetric, "*VGP_W,metric\nA,3,-4\n");
    EXPECT_EQ(PelGetLineTypeId(L"VGP_W", id), 1);
    EXPECT_STREQ(record().comments(), L"metric");
    EXPECT_EQ(events("linetype"),
              (Lines{product("eInvalidInput")[0], load("acadiso.lin", "eOk")[0]}));
}

TEST_F(LineTypesTest, NameIsFoundInAnyCaseAndKeepsTheFilesSpelling) {
    define(kProduct, "*Vgp_w,\nA,1,-2\n");
    EXPECT_EQ(PelGetLineTypeId(L"VGP_W", id), 1);
    EXPECT_EQ(record().name(), L"Vgp_w");
    AcDbObjectId again;
    EXPECT_EQ(PelGetLineTypeId(L"vgp_W", again), 1);
    EXPECT_EQ(again, id);
    EXPECT_EQ(events("lock").size(), 1U);
}

TEST_F(LineTypesTest, TableThatCannotBeOpenedGivesNothing) {
    define(kProduct, "*VGP_W,product\nA,1,-2\n");
    AcDbLinetypeTable* held = nullptr;
    ASSERT_EQ(drawing.database().getSymbolTable(held, AcDb::kForWrite), Acad::eOk);
    forget();
    EXPECT_EQ(PelGetLineTypeId(L"VGP_W", id), 0);
    EXPECT_EQ(PelGetLineTypeId(L"Continuous", id), 0);
    EXPECT_EQ(events(), Lines{});
    held->close();
    EXPECT_TRUE(id.isNull());
}

TEST_F(LineTypesTest, WithoutADrawingThereIsNothing) {
    define(kProduct, "*VGP_W,product\nA,1,-2\n");
    AcDbDatabase* const working = acdbHostApplicationServices()->workingDatabase();
    id = drawing.database().layerZero();
    acdbHostApplicationServices()->setWorkingDatabase(nullptr);
    EXPECT_EQ(PelGetLineTypeId(L"VGP_W", id), 0);
    EXPECT_EQ(PelGetLineTypeId(L"Continuous", id), 0);
    acdbHostApplicationServices()->setWorkingDatabase(working);
    EXPECT_EQ(events(), Lines{});
    EXPECT_EQ(id, drawing.database().layerZero());
    EXPECT_EQ(PelGetLineTypeId(L"Continuous", id), 1);
}

// What another has locked is read all the same, and the files are tried in vain.
TEST_F(LineTypesTest, UnderAnothersLockOnlyWhatIsThereIsFound) {
    define(kProduct, "*VGP_W,product\nA,1,-2\n");
    ASSERT_EQ(acDocManager()->lockByAnother(acDocManager()->curDocument(), AcAp::kWrite),
              Acad::eOk);
    forget();
    EXPECT_EQ(PelGetLineTypeId(L"VGP_W", id), 0);
    EXPECT_EQ(events("linetype"),
              (Lines{product("eLockViolation")[0], load("acadiso.lin", "eKeyNotFound")[0],
                     load("acad.lin", "eKeyNotFound")[0]}));
    EXPECT_TRUE(id.isNull());
    EXPECT_EQ(PelGetLineTypeId(L"Continuous", id), 1);
    ASSERT_EQ(acDocManager()->lockByAnother(acDocManager()->curDocument(), AcAp::kNotLocked),
              Acad::eOk);
    EXPECT_EQ(PelGetLineTypeId(L"VGP_W", id), 1);
}

// The loads need the table for write, which a reader elsewhere keeps from them.
TEST_F(LineTypesTest, TableHeldByAReaderIsLookedAtButNotFilled) {
    define(kProduct, "*VGP_W,product\nA,1,-2\n");
    AcDbLinetypeTable* held = nullptr;
    ASSERT_EQ(drawing.database().getSymbolTable(held, AcDb::kForRead), Acad::eOk);
    forget();
    EXPECT_EQ(PelGetLineTypeId(L"VGP_W", id), 0);
    EXPECT_EQ(events("linetype"),
              (Lines{product("eWasOpenForRead")[0], load("acadiso.lin", "eKeyNotFound")[0],
                     load("acad.lin", "eKeyNotFound")[0]}));
    held->close();
}

TEST_F(LineTypesTest, RecordThatCannotBeOpenedGivesNothing) {
    AcDbLinetypeTableRecord* held = nullptr;
    ASSERT_EQ(acdbOpenObject(held, drawing.database().byLayerLinetype(), AcDb::kForWrite),
              Acad::eOk);
    forget();
    EXPECT_EQ(PelGetLineTypeId(L"ByLayer", id), 0);
    EXPECT_EQ(events(), joined({look(), look()}));
    held->close();
    EXPECT_TRUE(id.isNull());
}

TEST_F(LineTypesTest, LoadIsTakenBackWithItsGroup) {
    define(kProduct, "*VGP_W,product\nA,1,-2\n");
    PelStartCommandGroup();
    ASSERT_EQ(PelGetLineTypeId(L"VGP_W", id), 1);
    PelEndCommandGroup();
    ASSERT_EQ(acedCommand(RTSTR, L"Undo", RTSTR, L"1", 0), RTNORM);
    const auto* const linetypes =
        host_db::peek<AcDbLinetypeTable>(drawing.database().linetypeTableId());
    EXPECT_FALSE(linetypes->has(L"VGP_W"));
    EXPECT_EQ(PelGetLineTypeId(L"VGP_W", id), 1);
    EXPECT_TRUE(linetypes->has(L"VGP_W"));
}

TEST_F(LineTypesTest, LoadedLinetypeIsReadFromTheSavedDrawing) {
    define(kProduct, "*VGP_W,排水 __ W __\nA,1,-.5,[\"W\",Standard,S=.2,R=30,X=-.1,Y=-.05],-.25\n");
    ASSERT_EQ(PelGetLineTypeId(L"VGP_W", id), 1);
    const AcDbObjectId line = addLine({0, 0, 0}, {10, 0, 0});
    dxf_test::changeObject<AcDbLine>(line, [this](AcDbLine& each) { each.setLinetype(id); });
    // Length of the pattern: 1 + 0.5 + 0.25.
    dxf_test::askAnother(
        drawing.database(), "loaded_linetype",
        {"space[0].dxf.linetype == \"VGP_W\"",
         "doc.linetypes.get(\"VGP_W\").dxf.description == \"排水 __ W __\"",
         "[tuple(t) for t in doc.linetypes.get(\"VGP_W\").pattern_tags.tags] == "
         "[(72, 65), (73, 3), (40, 1.75), (49, 1.0), (74, 0), (49, -0.5), (74, 2), (75, 0), "
         "(340, doc.styles.get(\"Standard\").dxf.handle), (46, 0.2), (50, 30.0), (44, -0.1), "
         "(45, -0.05), (9, \"W\"), (49, -0.25), (74, 0)]"});
}

} // namespace
} // namespace module_tests
