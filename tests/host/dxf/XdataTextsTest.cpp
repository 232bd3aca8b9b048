#include "database/AcDbLine.h"
#include "database/XdataText.h"
#include "DxfFile.h"
#include "LoadedDrawing.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

using dxf_test::BinaryFile;
using dxf_test::LoadedDrawing;
using dxf_test::TextFile;

namespace {

using Texts = std::vector<std::wstring>;

/// The first text under each name that a line of the drawing carries; "-" for no section.
Texts textsOf(const LoadedDrawing& drawing, std::size_t line,
              const std::vector<const wchar_t*>& names) {
    Texts texts;
    const auto* const object = drawing.modelEntity<AcDbLine>(line);
    if (object == nullptr) {
        return texts;
    }
    for (const wchar_t* const name : names) {
        CString text = L"-";
        bool hasApp = false;
        EXPECT_EQ(host_db::firstXdataString(*object, name, text, hasApp), hasApp);
        EXPECT_EQ(hasApp, text != L"-");
        texts.emplace_back(text.GetString());
    }
    return texts;
}

Texts textsOf(const std::string& bytes, const std::vector<const wchar_t*>& names) {
    return textsOf(LoadedDrawing::fromBytes(bytes), 0, names);
}

TextFile& begun(TextFile& file) {
    return file.group(0, "SECTION").group(2, "ENTITIES").group(0, "LINE").group(8, "0");
}

TextFile& ended(TextFile& file) {
    return file.group(0, "ENDSEC").group(0, "EOF");
}

/// A drawing with one line that carries the groups, which are written as they stand.
std::string lineWith(const std::string& groups) {
    TextFile file;
    begun(file).raw(groups);
    return ended(file).bytes();
}

TEST(XdataTexts, AreTheFirstOfEachApplicationWhateverEndsALine) {
    for (const std::string lineEnd : {"\n", "\r\n", "\r"}) {
        TextFile file(lineEnd);
        begun(file).group(1001, "A").group(1000, "one").group(1000, "two");
        file.group(1001, "B").group(1070, "3").group(1001, "C").group(1002, "{");
        file.group(1040, "1.5").group(1000, "deep").group(1002, "}");
        file.group(1001, "D").group(1000, "");
        EXPECT_EQ(textsOf(ended(file).bytes(), {L"A", L"B", L"C", L"D", L"E"}),
                  (Texts{L"one", L"", L"deep", L"", L"-"}));
    }
}

TEST(XdataTexts, OfBinaryFilesAreTheSame) {
    for (const auto codes : {BinaryFile::Codes::Short, BinaryFile::Codes::Wide}) {
        BinaryFile file(codes);
        file.text(0, "SECTION").text(2, "ENTITIES").text(0, "LINE").text(8, "0");
        file.text(1001, "A").text(1000, "one").text(1000, "two").text(1001, "B").int16(1070, 3);
        file.text(1001, "C").text(1002, "{").real(1040, 1.5).text(1000, "deep").text(1002, "}");
        file.text(1001, "D").text(1000, "").text(0, "ENDSEC").text(0, "EOF");
        EXPECT_EQ(textsOf(file.bytes(), {L"A", L"B", L"C", L"D", L"E"}),
                  (Texts{L"one", L"", L"deep", L"", L"-"}));
    }
}

TEST(XdataTexts, AreAskedForInAnyOrderAndAsOftenAsOneLikes) {
    EXPECT_EQ(textsOf(lineWith("1001\nA\n1000\none\n1001\nB\n1000\ntwo\n"),
                      {L"B", L"A", L"X", L"a", L"B", L"b"}),
              (Texts{L"two", L"one", L"-", L"one", L"two", L"two"}));
}

TEST(XdataTexts, EachObjectHasItsOwn) {
    const LoadedDrawing drawing = LoadedDrawing::fromBytes(
        lineWith("1001\nA\n1000\nfirst\n0\nLINE\n8\n0\n1001\nB\n1000\nmore\n1001\nA\n1000\nsecond\n"
                 "0\nLINE\n8\n0\n0\nLINE\n8\n0\n1001\nA\n1000\nlast\n"));
    EXPECT_EQ(textsOf(drawing, 0, {L"A", L"B"}), (Texts{L"first", L"-"}));
    EXPECT_EQ(textsOf(drawing, 1, {L"A", L"B"}), (Texts{L"second", L"more"}));
    EXPECT_EQ(textsOf(drawing, 2, {L"A", L"B"}), (Texts{L"-", L"-"}));
    EXPECT_EQ(textsOf(drawing, 3, {L"A", L"B"}), (Texts{L"last", L"-"}));
}

/// A text file that is written like a binary one.
struct SpokenText : TextFile {
    SpokenText& text(int code, std::string_view value) {
        group(code, value);
        return *this;
    }
};

/// One of several lines that all say the same.
template<class File>
void addSpeaker(File& file) {
    file.text(0, "LINE").text(8, "0");
    file.text(1001, "A").text(1000, "same").text(1000, "more");
    file.text(1001, "LONG").text(1000, std::string(200, 'x'));
    file.text(1001, "EMPTY").text(1000, "").text(1001, "NONE");
    file.text(1001, "a").text(1000, "later");
}

template<class File>
std::string threeSayingTheSame(File file) {
    file.text(0, "SECTION").text(2, "ENTITIES");
    for (int i = 0; i < 3; ++i) {
        addSpeaker(file);
    }
    return file.text(0, "ENDSEC").text(0, "EOF").bytes();
}

// What is said again is told from memory and not from the file.
TEST(XdataTexts, ThatAreSaidAgainAreTheSame) {
    for (const std::string& bytes : {threeSayingTheSame(SpokenText()),
                                     threeSayingTheSame(BinaryFile(BinaryFile::Codes::Short)),
                                     threeSayingTheSame(BinaryFile(BinaryFile::Codes::Wide))}) {
        const LoadedDrawing drawing = LoadedDrawing::fromBytes(bytes);
        for (int round = 0; round < 2; ++round) {
            for (const std::size_t line : {2U, 0U, 1U}) {
                EXPECT_EQ(textsOf(drawing, line, {L"A", L"LONG", L"EMPTY", L"NONE"}),
                          (Texts{L"same", std::wstring(200, L'x'), L"", L""}));
            }
        }
    }
}

TEST(XdataTexts, OfTwoSectionsOfOneNameTheFirstCounts) {
    EXPECT_EQ(textsOf(lineWith("1001\nA\n1001\na\n1000\nlater\n"), {L"A"}), Texts{L""});
}

TEST(XdataTexts, CommentsAndUnusualSpellingsAreReadOver) {
    EXPECT_EQ(textsOf(lineWith("1001\nA\n999\nnot a text\n 1000\none\n1000 \ntwo\n"
                               "01001\nB\n999\n1000\n\t1000\nthree\n"),
                      {L"A", L"B"}),
              (Texts{L"one", L"three"}));
}

TEST(XdataTexts, KeepTheirBlanksAndMayLookLikeCodes) {
    EXPECT_EQ(textsOf(lineWith("1001\n1001\n1000\n1000\n1001\nA\n1000\n  x \n"), {L"1001", L"A"}),
              (Texts{L"1000", L"  x "}));
}

// The line carries both applications by name, but what stands behind the 62 is none of its data.
TEST(XdataTexts, EndAtACodeThatIsNoneOfTheirs) {
    EXPECT_EQ(textsOf(lineWith("1001\nA\n62\n7\n1000\nlate\n1001\nB\n1000\nlater\n"), {L"A", L"B"}),
              (Texts{L"", L"-"}));
}

// One text of 255 letters after another: 65,535 bytes and more behind the begin of the data.
TEST(XdataTexts, FarBehindTheBeginOfTheDataAreFound) {
    std::string groups = "1001\nFIRST\n";
    while (groups.size() < 65'000) {
        groups += "1000\n" + std::string(255, 'x') + "\n";
    }
    std::string far;
    for (int i = 0; i < 100; ++i) {
        far += "1001\nAPP" + std::to_string(i) + "\n1000\ntext " + std::to_string(i) + "\n";
    }
    groups += far + "1001\nBARE\n1070\n1\n1001\nLAST\n1000\nlast\n1000\nno\n";
    const LoadedDrawing drawing = LoadedDrawing::fromBytes(lineWith(groups));
    for (int i = 0; i < 100; ++i) {
        const std::wstring number = std::to_wstring(i);
        EXPECT_EQ(textsOf(drawing, 0, {(L"app" + number).c_str()}), Texts{L"text " + number});
    }
    EXPECT_EQ(textsOf(drawing, 0, {L"FIRST", L"BARE", L"last"}),
              (Texts{std::wstring(255, L'x'), L"", L"last"}));
}

} // namespace
