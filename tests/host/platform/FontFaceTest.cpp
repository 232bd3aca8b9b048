#include "platform/FontFace.h"

#include "FontAdvances.h"
#include "platform/FontFile.h"

namespace {

using host::findFontFile;
using host::FontFace;

constexpr wchar_t kLatin[] = L"DejaVuSans.ttf";
constexpr wchar_t kChinese[] = L"DroidSansFallbackFull.ttf";

std::string fileName(const std::string& path) {
    return path.substr(path.find_last_of('/') + 1);
}

void expectAdvances(const wchar_t* font, const std::wstring& characters) {
    const FontFace* const face = FontFace::named(font);
    ASSERT_NE(face, nullptr);
    const auto expected = font_test::advancesIn(findFontFile(font).path, characters);
    for (std::size_t i = 0; i < characters.size(); ++i) {
        SCOPED_TRACE(std::hex);
        SCOPED_TRACE(static_cast<unsigned>(characters[i]));
        EXPECT_GT(expected[i], 0.0);
        EXPECT_EQ(face->advance(characters[i]), expected[i]);
    }
}

TEST(FontFaceTest, LatinLettersAndDigitsHaveTheFontsAdvances) {
    std::wstring ascii;
    for (wchar_t character = L' '; character <= L'~'; ++character) {
        ascii += character;
    }
    expectAdvances(kLatin, ascii + L"éßØ°±Ж");
}

TEST(FontFaceTest, ChineseCharactersHaveTheFontsAdvances) {
    expectAdvances(kChinese, L"污水雨给管道系统标高坡度井号，。（）");
}

TEST(FontFaceTest, CharacterThatTheFontLacksHasNoAdvance) {
    const FontFace* const face = FontFace::named(kLatin);
    ASSERT_NE(face, nullptr);
    EXPECT_EQ(font_test::advancesIn(findFontFile(kLatin).path, L"污"), std::vector<double>{-1.0});
    EXPECT_EQ(face->advance(L'污'), std::nullopt);
    EXPECT_EQ(face->advance(L'污'), std::nullopt) << "a second time";
}

TEST(FontFaceTest, FontIsFoundByItsFileOrItsFamilyInAnyCase) {
    for (const wchar_t* const name :
         {L"DejaVuSans.ttf", L"dejavusans.TTF", L"DejaVuSans", L"DejaVu Sans", L"dejavu sans",
          L"C:\\Windows\\Fonts\\DejaVuSans.ttf", L"fonts/DejaVuSans.ttf"}) {
        EXPECT_EQ(fileName(findFontFile(name).path), "DejaVuSans.ttf") << host_text::toUtf8(name);
    }
    EXPECT_EQ(fileName(findFontFile(L"DejaVu Sans Mono").path), "DejaVuSansMono.ttf");
}

TEST(FontFaceTest, FontThatIsNotThereIsNone) {
    for (const wchar_t* const name : {L"", L"txt", L"txt.shx", L"no such font", L"nosuch.ttf"}) {
        EXPECT_EQ(findFontFile(name).path, "");
        EXPECT_EQ(FontFace::named(name), nullptr);
    }
}

TEST(FontFaceTest, FontIsOpenedOnce) {
    EXPECT_EQ(FontFace::named(kLatin), FontFace::named(kLatin));
}

} // namespace
