#include "platform/FontFace.h"

#include "FontAdvances.h"
#include "platform/FontFile.h"
#include "platform/SupportFiles.h"
#include "siblings/TemporaryFolder.h"

#include <cstdlib>
#include <filesystem>
#include <unistd.h>

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

/// A folder of fonts that the host looks into.
class SupportFontTest : public ::testing::Test {
protected:
    ~SupportFontTest() override { host::setSupportFolders({}); }

    void look() { host::setSupportFolders({folder.text()}); }
    void copyFont(const std::string& name) {
        folder.write(name, "");
        std::filesystem::copy_file(findFontFile(kLatin).path, folder.path() / name,
                                   std::filesystem::copy_options::overwrite_existing);
    }
    std::string at(const std::string& name) const { return folder.text() + "/" + name; }

    sibling_tests::TemporaryFolder folder;
};

TEST_F(SupportFontTest, FileIsFoundInAnyCaseWhateverPathIsNamed) {
    copyFont("Own Font.TTF");
    look();
    for (const wchar_t* const name :
         {L"own font.ttf", L"OWN FONT", L"C:\\Windows\\Fonts\\own font.ttf"}) {
        EXPECT_EQ(findFontFile(name).path, at("Own Font.TTF")) << host_text::toUtf8(name);
    }
}

TEST_F(SupportFontTest, MissedFontIsFoundWhenTheFoldersHaveChanged) {
    EXPECT_EQ(FontFace::named(L"lately come"), nullptr);
    copyFont("Lately Come.ttf");
    EXPECT_EQ(FontFace::named(L"lately come"), nullptr) << "not looked for anew";
    look();
    const FontFace* const face = FontFace::named(L"lately come");
    ASSERT_NE(face, nullptr);
    EXPECT_EQ(face->advance(L'W'), FontFace::named(kLatin)->advance(L'W'));
    host::setSupportFolders({});
    EXPECT_EQ(FontFace::named(L"lately come"), nullptr) << "out of the folders again";
    EXPECT_TRUE(face->advance(L'i').has_value()) << "what was opened stays";
    look();
    EXPECT_EQ(FontFace::named(L"lately come"), face);
}

TEST_F(SupportFontTest, FamilyIsFoundUnderItsNameInEveryLanguage) {
    const std::string command = "/usr/bin/python3 -B '" TKVLT_TESTS_DIR
                                "/host/platform/make_named_font.py' '" +
                                findFontFile(kLatin).path + "' '" + at("named.ttf") +
                                "' 'Own Song' 'Own Song Pro' '自家宋体' '𠀀體'";
    ASSERT_EQ(std::system(command.c_str()), 0) << command;
    EXPECT_EQ(findFontFile(L"自家宋体").path, "");
    look();
    for (const wchar_t* const name : {L"Own Song", L"own song pro", L"自家宋体", L"𠀀體"}) {
        EXPECT_EQ(findFontFile(name).path, at("named.ttf")) << host_text::toUtf8(name);
    }
    EXPECT_EQ(findFontFile(L"自家宋").path, "");
    EXPECT_EQ(fileName(findFontFile(L"DejaVu Sans").path), "DejaVuSans.ttf");
}

/// Looks for a font among folders that may not be opened, as a user who is bound by that, and ends
/// the process with 0 when it is found.
[[noreturn]] void findAmongLockedFolders(const std::filesystem::path& home) {
    constexpr uid_t kNobody = 65534;
    ::setenv("HOME", home.c_str(), 1);
    const bool isBound = ::geteuid() != 0 || ::seteuid(kNobody) == 0;
    ::_exit(isBound && !findFontFile(L"among.ttf").path.empty() ? 0 : 1);
}

// The system tells the entries of a folder in an order of its own, hence the number of folders.
TEST_F(SupportFontTest, FoldersThatMayNotBeOpenedArePassedOver) {
    // A process of its own, since the fonts of the user are looked for once in a process.
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    folder.write(".fonts/free/among.ttf", "");
    std::filesystem::permissions(folder.path(), std::filesystem::perms(0755));
    std::vector<std::filesystem::path> locked;
    for (const char letter : std::string("abcdefghijklnopqrstuvwxyz")) {
        locked.push_back(folder.path() / ".fonts" / std::string(1, letter));
        std::filesystem::create_directory(locked.back());
        std::filesystem::permissions(locked.back(), std::filesystem::perms::none);
    }
    EXPECT_EXIT(findAmongLockedFolders(folder.path()), testing::ExitedWithCode(0), "");
    for (const std::filesystem::path& each : locked) {
        std::filesystem::permissions(each, std::filesystem::perms::owner_all);
    }
}

TEST(FontFaceTest, FontIsOpenedOnce) {
    EXPECT_EQ(FontFace::named(kLatin), FontFace::named(kLatin));
}

} // namespace
