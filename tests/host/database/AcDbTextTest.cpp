#include "database/AcDbText.h"

#include "database/TextMetrics.h"
#include "host/database/DatabaseFixture.h"
#include "host/platform/FontAdvances.h"
#include "platform/FontFile.h"

#include <array>
#include <cmath>
#include <numbers>
#include <numeric>
#include <utility>

namespace {

constexpr double kPi = std::numbers::pi;

AcDbExtents boxOf(const AcDbText& text) {
    AcDbExtents box;
    EXPECT_EQ(text.getGeomExtents(box), Acad::eOk);
    return box;
}

TEST(TextMetricsTest, AWideCharacterTakesAFullEm) {
    for (const wchar_t wide : {L'水', L'管', L'、', L'Ｗ', L'あ', L'한', L'①', wchar_t{0x20001}}) {
        EXPECT_TRUE(host_db::isWideCharacter(wide)) << static_cast<int>(wide);
        EXPECT_EQ(host_db::textAdvance(wide), 1.0);
    }
    for (const wchar_t narrow : {L'W', L'é', L'Ω', L'Ж', L'φ'}) {
        EXPECT_FALSE(host_db::isWideCharacter(narrow));
        EXPECT_LT(host_db::textAdvance(narrow), 1.0);
    }
    EXPECT_DOUBLE_EQ(host_db::textWidth(L"污水"), 2.0);
}

/// The advances that the documentation states for ASCII, in hundredths of an em, in the order of
/// the characters.
constexpr std::array<std::pair<wchar_t, int>, 95> kStatedAdvances = {{
    {L' ', 35},  {L'!', 25}, {L'"', 35}, {L'#', 60}, {L'$', 60},  {L'%', 90}, {L'&', 70},
    {L'\'', 25}, {L'(', 35}, {L')', 35}, {L'*', 45}, {L'+', 60},  {L',', 25}, {L'-', 35},
    {L'.', 25},  {L'/', 35}, {L'0', 60}, {L'1', 60}, {L'2', 60},  {L'3', 60}, {L'4', 60},
    {L'5', 60},  {L'6', 60}, {L'7', 60}, {L'8', 60}, {L'9', 60},  {L':', 25}, {L';', 25},
    {L'<', 60},  {L'=', 60}, {L'>', 60}, {L'?', 55}, {L'@', 90},  {L'A', 70}, {L'B', 70},
    {L'C', 75},  {L'D', 75}, {L'E', 70}, {L'F', 60}, {L'G', 75},  {L'H', 75}, {L'I', 35},
    {L'J', 55},  {L'K', 70}, {L'L', 60}, {L'M', 90}, {L'N', 75},  {L'O', 90}, {L'P', 70},
    {L'Q', 90},  {L'R', 75}, {L'S', 70}, {L'T', 70}, {L'U', 75},  {L'V', 70}, {L'W', 95},
    {L'X', 70},  {L'Y', 70}, {L'Z', 70}, {L'[', 35}, {L'\\', 35}, {L']', 35}, {L'^', 45},
    {L'_', 55},  {L'`', 25}, {L'a', 55}, {L'b', 60}, {L'c', 55},  {L'd', 60}, {L'e', 55},
    {L'f', 35},  {L'g', 60}, {L'h', 60}, {L'i', 25}, {L'j', 25},  {L'k', 55}, {L'l', 25},
    {L'm', 90},  {L'n', 60}, {L'o', 60}, {L'p', 60}, {L'q', 60},  {L'r', 45}, {L's', 45},
    {L't', 35},  {L'u', 60}, {L'v', 55}, {L'w', 75}, {L'x', 55},  {L'y', 55}, {L'z', 55},
    {L'{', 35},  {L'|', 25}, {L'}', 35}, {L'~', 60},
}};

TEST(TextMetricsTest, EveryVisibleAsciiCharacterHasItsAdvance) {
    wchar_t next = L' ';
    for (const auto& [character, advance] : kStatedAdvances) {
        EXPECT_EQ(character, next++);
        EXPECT_DOUBLE_EQ(host_db::textAdvance(character), advance / 100.0)
            << static_cast<int>(character);
    }
    EXPECT_DOUBLE_EQ(host_db::textAdvance(L'Ω'), 0.6);
    EXPECT_DOUBLE_EQ(host_db::textAdvance(wchar_t{0x301}), 0.0);
    EXPECT_DOUBLE_EQ(host_db::textWidth(L"100"), 1.8);
    EXPECT_DOUBLE_EQ(host_db::textWidth(L""), 0.0);
    EXPECT_DOUBLE_EQ(host_db::textWidth(nullptr), 0.0);
}

TEST(TextMetricsTest, TheDrawingsOwnCodesCountAsWhatTheyShow) {
    EXPECT_DOUBLE_EQ(host_db::textWidth(L"%%c100"), 2.4);
    EXPECT_DOUBLE_EQ(host_db::textWidth(L"%%u100%%u"), 1.8);
    EXPECT_DOUBLE_EQ(host_db::textWidth(L"%%048"), 0.6);
    EXPECT_DOUBLE_EQ(host_db::textWidth(L"%%%"), 0.9);
    EXPECT_DOUBLE_EQ(host_db::textWidth(L"%%"), 1.8);
}

TEST(AcDbTextTest, WidthIsAdvanceTimesHeightTimesFactor) {
    AcDbText text({10.0, 20.0, 1.0}, L"污水", AcDbObjectId(), 3.0);
    text.setWidthFactor(0.5);
    expectBox(boxOf(text), {10.0, 20.0, 1.0}, {13.0, 23.0, 1.0});
}

TEST(AcDbTextTest, ACloneMeasuredUnturnedLeavesTheTextAsItWas) {
    const AcDbText text({0.0, 0.0, 0.0}, L"水水", AcDbObjectId(), 1.0, kPi / 2.0);
    expectBox(boxOf(text), {-1.0, 0.0, 0.0}, {0.0, 2.0, 0.0});
    const std::unique_ptr<AcRxObject> copy(text.clone());
    auto* unturned = AcDbText::cast(copy.get());
    ASSERT_NE(unturned, nullptr);
    EXPECT_EQ(unturned->setRotation(0.0), Acad::eOk);
    expectBox(boxOf(*unturned), {0.0, 0.0, 0.0}, {2.0, 1.0, 0.0});
    EXPECT_DOUBLE_EQ(text.rotation(), kPi / 2.0);
}

TEST(AcDbTextTest, AlignmentShiftsTheBox) {
    AcDbText text({100.0, 100.0, 0.0}, L"水水", AcDbObjectId(), 2.0);
    text.setAlignmentPoint({10.0, 10.0, 0.0});
    expectBox(boxOf(text), {100.0, 100.0, 0.0}, {104.0, 102.0, 0.0});
    text.setHorizontalMode(AcDb::kTextCenter);
    expectBox(boxOf(text), {8.0, 10.0, 0.0}, {12.0, 12.0, 0.0});
    text.setHorizontalMode(AcDb::kTextRight);
    text.setVerticalMode(AcDb::kTextTop);
    expectBox(boxOf(text), {6.0, 8.0, 0.0}, {10.0, 10.0, 0.0});
    text.setHorizontalMode(AcDb::kTextMid);
    text.setVerticalMode(AcDb::kTextBase);
    expectBox(boxOf(text), {8.0, 9.0, 0.0}, {12.0, 11.0, 0.0});
    text.setHorizontalMode(AcDb::kTextLeft);
    text.setVerticalMode(AcDb::kTextVertMid);
    expectBox(boxOf(text), {10.0, 9.0, 0.0}, {14.0, 11.0, 0.0});
}

TEST(AcDbTextTest, FittedTextRunsBetweenItsTwoPoints) {
    AcDbText text({0.0, 0.0, 0.0}, L"水水", AcDbObjectId(), 2.0);
    text.setAlignmentPoint({0.0, 8.0, 0.0});
    text.setHorizontalMode(AcDb::kTextFit);
    expectBox(boxOf(text), {-2.0, 0.0, 0.0}, {0.0, 8.0, 0.0});
    // Aligned text keeps its shape: twice as wide, so twice as high.
    text.setHorizontalMode(AcDb::kTextAlign);
    expectBox(boxOf(text), {-4.0, 0.0, 0.0}, {0.0, 8.0, 0.0});
}

TEST(AcDbTextTest, FittedTextThatIsTurnedStaysAsLongUntilItsPointsAreSetAgain) {
    AcDbText text({0.0, 0.0, 0.0}, L"水水", AcDbObjectId(), 2.0);
    text.setAlignmentPoint({0.0, 8.0, 0.0});
    text.setHorizontalMode(AcDb::kTextFit);
    text.setRotation(0.0);
    expectBox(boxOf(text), {0.0, 0.0, 0.0}, {8.0, 2.0, 0.0});
    text.setHorizontalMode(AcDb::kTextAlign);
    text.setRotation(0.0);
    expectBox(boxOf(text), {0.0, 0.0, 0.0}, {8.0, 4.0, 0.0});
    text.setPosition({0.0, 2.0, 0.0});
    expectBox(boxOf(text), {-3.0, 2.0, 0.0}, {0.0, 8.0, 0.0});
    text.setRotation(0.0);
    text.setAlignmentPoint({0.0, 4.0, 0.0});
    expectBox(boxOf(text), {-1.0, 2.0, 0.0}, {0.0, 4.0, 0.0});
}

TEST(AcDbTextTest, SlantAndEmptyText) {
    AcDbText text({0.0, 0.0, 0.0}, L"水", AcDbObjectId(), 1.0);
    text.setOblique(kPi / 4.0);
    expectBox(boxOf(text), {0.0, 0.0, 0.0}, {2.0, 1.0, 0.0});
    text.setTextString(L"");
    text.setOblique(0.0);
    expectBox(boxOf(text), {0.0, 0.0, 0.0}, {0.0, 1.0, 0.0});
}

/// A text in a style of its own, measured against what another library reads from the fonts.
class TextFontsTest : public DatabaseFixture {
protected:
    AcDbObjectId addStyle(const wchar_t* font, const wchar_t* bigFont) {
        auto style = std::make_unique<AcDbTextStyleTableRecord>();
        style->setName((L"own" + std::to_wstring(++styles_)).c_str());
        style->setFileName(font);
        style->setBigFontFileName(bigFont);
        return addRecord<AcDbTextStyleTable>(std::move(style));
    }

    static double widthOf(const wchar_t* text, AcDbObjectId style) {
        const AcDbExtents box = boxOf(AcDbText({0.0, 0.0, 0.0}, text, style, 1.0));
        return box.maxPoint().x - box.minPoint().x;
    }

    /// Sum of the advances in one font.
    static double sumIn(const wchar_t* font, std::wstring_view characters) {
        const auto all = font_test::advancesIn(host::findFontFile(font).path, characters);
        return std::accumulate(all.begin(), all.end(), 0.0);
    }

    static constexpr wchar_t kLatin[] = L"DejaVuSans.ttf";
    static constexpr wchar_t kChinese[] = L"DroidSansFallbackFull.ttf";

private:
    int styles_ = 0;
};

TEST_F(TextFontsTest, LatinTextIsAsWideAsItsAdvances) {
    EXPECT_NEAR(widthOf(L"DN300 i=0.5% (W-12)", addStyle(kLatin, L"")),
                sumIn(kLatin, L"DN300 i=0.5% (W-12)"), 1e-12);
}

TEST_F(TextFontsTest, ChineseTextIsAsWideAsItsAdvances) {
    EXPECT_NEAR(widthOf(L"污水管道，标高", addStyle(kChinese, L"")),
                sumIn(kChinese, L"污水管道，标高"), 1e-12);
}

TEST_F(TextFontsTest, BigFontHasWhatTheFontLacks) {
    EXPECT_NEAR(widthOf(L"污水DN100", addStyle(kLatin, kChinese)),
                sumIn(kLatin, L"DN100") + sumIn(kChinese, L"污水"), 1e-12);
}

TEST_F(TextFontsTest, BuiltInTableHasWhatNoFontHas) {
    // A full em for each wide character.
    EXPECT_NEAR(widthOf(L"污水DN100", addStyle(kLatin, L"none.shx")), sumIn(kLatin, L"DN100") + 2.0,
                1e-12);
    // D and N 0.75, digits 0.6.
    EXPECT_NEAR(widthOf(L"DN100", addStyle(L"none.ttf", L"none.shx")), 1.5 + 1.8, 1e-12);
}

TEST_F(TextFontsTest, CodesHaveTheAdvanceOfWhatTheyShow) {
    EXPECT_NEAR(widthOf(L"%%c%%d%%p%%%%%u%%065", addStyle(kLatin, L"")), sumIn(kLatin, L"Ø°±%A"),
                1e-12);
}

TEST_F(TextFontsTest, TextWithoutAStyleHasTheDrawingsDefaultOne) {
    AcDbTextStyleTableRecord* standard = nullptr;
    ASSERT_EQ(acdbOpenObject(standard, database().textstyle(), AcDb::kForWrite), Acad::eOk);
    standard->setFileName(kLatin);
    standard->close();
    EXPECT_NEAR(widthOf(L"DN100", AcDbObjectId()), sumIn(kLatin, L"DN100"), 1e-12);
}

TEST_F(TextFontsTest, FamilyOfTheStyleCountsWithoutAFontFile) {
    const AcDbObjectId style = addStyle(L"", L"");
    AcDbTextStyleTableRecord* record = nullptr;
    ASSERT_EQ(acdbOpenObject(record, style, AcDb::kForWrite), Acad::eOk);
    resbuf* const family = acutBuildList(AcDb::kDxfRegAppName, L"ACAD", AcDb::kDxfXDAsciiString,
                                         L"DejaVu Sans", RTNONE);
    EXPECT_EQ(record->setXData(family), Acad::eOk);
    acutRelRb(family);
    record->close();
    EXPECT_NEAR(widthOf(L"DN100", style), sumIn(kLatin, L"DN100"), 1e-12);
}

TEST(AcDbTextTest, FieldsReadBack) {
    AcDbText text;
    text.setTextString(L"井");
    text.setVerticalMode(AcDb::kTextTop);
    ACHAR* copy = text.textString();
    EXPECT_STREQ(copy, L"井");
    acutDelString(copy);
    EXPECT_EQ(text.verticalMode(), 3);
    EXPECT_EQ(text.horizontalMode(), 0);
    EXPECT_EQ(text.widthFactor(), 1.0);
    EXPECT_STREQ(text.dxfTypeName(), L"TEXT");
}

} // namespace
