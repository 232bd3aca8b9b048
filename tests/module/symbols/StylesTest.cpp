#include "host/dxf/SavedDrawing.h"
#include "module/utilities/UtilitiesTest.h"

#include "utilities/Styles.h"

namespace module_tests {
namespace {

class StylesTest : public UtilitiesTest {
protected:
    void SetUp() override {
        UtilitiesTest::SetUp();
        textStyles = drawing.database().textStyleTableId();
        dimStyles = drawing.database().dimStyleTableId();
    }

    AcDbObjectId addTextStyle(const wchar_t* name, double xScale, const wchar_t* font = L"txt.shx",
                              const wchar_t* bigFont = L"") {
        auto* const style = new AcDbTextStyleTableRecord;
        style->setName(name);
        style->setXScale(xScale);
        style->setFileName(font);
        style->setBigFontFileName(bigFont);
        const AcDbObjectId added = dxf_test::addRecord(textStyles, style);
        forget();
        return added;
    }

    /// Looks while the object is held for write.
    template<typename Look>
    void whileHeld(AcDbObjectId held, Look look) {
        AcDbObject* object = nullptr;
        ASSERT_EQ(acdbOpenAcDbObject(object, held, AcDb::kForWrite), Acad::eOk);
        look();
        object->close();
    }

    AcDbObjectId textStyles;
    AcDbObjectId dimStyles;
    AcDbObjectId id;
    double factor = 9.0;
};

TEST_F(StylesTest, DimensionStyleIsFoundInAnyCase) {
    EXPECT_EQ(PelGetDimStyleId(L"STANDARD", id), Acad::eOk);
    const auto* const style = host_db::peek<AcDbDimStyleTableRecord>(id);
    ASSERT_NE(style, nullptr);
    EXPECT_EQ(style->name(), L"Standard");
}

TEST_F(StylesTest, DimensionStyleLookUpOpensTheTableAlone) {
    forget();
    PelGetDimStyleId(L"Standard", id);
    EXPECT_EQ(events(),
              (Lines{"open read " + handleOf(dimStyles), "close " + handleOf(dimStyles)}));
}

TEST_F(StylesTest, MissingDimensionStyleGivesTheLookUpsStatusAndLeavesTheId) {
    id = dimStyles;
    EXPECT_EQ(PelGetDimStyleId(L"missing", id), Acad::eKeyNotFound);
    EXPECT_EQ(id, dimStyles);
}

TEST_F(StylesTest, DimensionStyleTableThatCannotBeOpenedGivesItsStatus) {
    whileHeld(dimStyles,
              [&] { EXPECT_EQ(PelGetDimStyleId(L"Standard", id), Acad::eWasOpenForWrite); });
    EXPECT_TRUE(id.isNull());
}

TEST_F(StylesTest, TextStyleGivesItsIdAndWidthFactor) {
    const AcDbObjectId added = addTextStyle(L"工程字", 0.7);
    EXPECT_EQ(PelGetTextStyleId(L"工程字", id, factor), Acad::eOk);
    EXPECT_EQ(id, added);
    EXPECT_EQ(factor, 0.7);
    const std::string table = handleOf(textStyles);
    EXPECT_EQ(events(), (Lines{"open read " + table, "open read " + handleOf(added),
                               "close " + handleOf(added), "close " + table}));
}

TEST_F(StylesTest, MissingTextStyleGivesTheLookUpsStatusAndLeavesBoth) {
    forget();
    id = textStyles;
    EXPECT_EQ(PelGetTextStyleId(L"missing", id, factor), Acad::eKeyNotFound);
    EXPECT_EQ(id, textStyles);
    EXPECT_EQ(factor, 9.0);
    EXPECT_EQ(events(),
              (Lines{"open read " + handleOf(textStyles), "close " + handleOf(textStyles)}));
}

TEST_F(StylesTest, TextStyleTableThatCannotBeOpenedGivesItsStatus) {
    whileHeld(textStyles, [&] {
        EXPECT_EQ(PelGetTextStyleId(L"Standard", id, factor), Acad::eWasOpenForWrite);
    });
    EXPECT_TRUE(id.isNull());
    EXPECT_EQ(factor, 9.0);
}

TEST_F(StylesTest, RecordThatCannotBeOpenedLeavesTheFactorButGivesTheId) {
    const AcDbObjectId added = addTextStyle(L"narrow", 0.7);
    whileHeld(added, [&] { EXPECT_EQ(PelGetTextStyleId(L"narrow", id, factor), Acad::eOk); });
    EXPECT_EQ(id, added);
    EXPECT_EQ(factor, 9.0);
}

TEST_F(StylesTest, NoDrawingHasNoStyles) {
    drawing.close();
    EXPECT_EQ(PelGetDimStyleId(L"Standard", id), Acad::eNoDatabase);
    EXPECT_EQ(PelGetTextStyleId(L"Standard", id, factor), Acad::eNoDatabase);
}

// Without a font file the built-in table counts: 1 for each wide character; D and N 0.75; each
// digit 0.6.
TEST_F(StylesTest, TextWidthIsTheSumOfAdvancesAtHeightOne) {
    addTextStyle(L"plain", 1.0);
    EXPECT_NEAR(PelGetTextWidth(L"plain", L"污水"), 2.0, 1e-12);
    EXPECT_NEAR(PelGetTextWidth(L"plain", L"污水DN100"), 2.0 + 1.5 + 1.8, 1e-12);
    EXPECT_EQ(PelGetTextWidth(L"plain", L""), 0.0);
}

TEST_F(StylesTest, TextWidthHasTheStylesWidthFactor) {
    addTextStyle(L"narrow", 0.5);
    EXPECT_NEAR(PelGetTextWidth(L"narrow", L"污水100"), 0.5 * (2.0 + 1.8), 1e-12);
}

TEST_F(StylesTest, MissingStyleIsMeasuredInTheDefaultOneWithTheFactorOne) {
    dxf_test::changeObject<AcDbTextStyleTableRecord>(
        drawing.database().textstyle(),
        [](AcDbTextStyleTableRecord& style) { style.setXScale(0.5); });
    EXPECT_NEAR(PelGetTextWidth(L"missing", L"污水"), 2.0, 1e-12);
    EXPECT_NEAR(PelGetTextWidth(L"Standard", L"污水"), 1.0, 1e-12);
}

// Letters of the fixed-width font DejaVu Sans Mono advance 1233 of 2048 units, i as well as W.
TEST_F(StylesTest, TextWidthIsThatOfTheStylesFont) {
    addTextStyle(L"mono", 0.5, L"DejaVuSansMono.ttf");
    EXPECT_NEAR(PelGetTextWidth(L"mono", L"iW1"), 0.5 * 3 * 1233 / 2048, 1e-12);
    dxf_test::changeObject<AcDbTextStyleTableRecord>(
        drawing.database().textstyle(),
        [](AcDbTextStyleTableRecord& style) { style.setFileName(L"DejaVuSansMono.ttf"); });
    EXPECT_NEAR(PelGetTextWidth(L"missing", L"iW1"), 3.0 * 1233 / 2048, 1e-12);
}

TEST_F(StylesTest, MeasuringLeavesTheDrawingAsItIs) {
    const AcDbObjectId style = addTextStyle(L"plain", 1.0);
    PelGetTextWidth(L"plain", L"污水");
    const std::string table = handleOf(textStyles);
    EXPECT_EQ(events(), (Lines{"open read " + table, "open read " + handleOf(style),
                               "close " + handleOf(style), "close " + table}));
    EXPECT_EQ(entities(), Ids{});
}

} // namespace
} // namespace module_tests
