#include "dxf/TagCursor.h"
#include "DxfFile.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <vector>

using dxf_test::BinaryFile;
using dxf_test::TextFile;
using host_dxf::DxfFailure;
using host_dxf::DxfSource;
using host_dxf::DxfTag;
using host_dxf::FileForm;
using host_dxf::TagCursor;

namespace {

std::shared_ptr<const DxfSource> sourceOf(std::string_view bytes) {
    return DxfSource::fromBytes(bytes, "test.dxf");
}

std::vector<DxfTag> tagsOf(const DxfSource& source) {
    TagCursor cursor(source);
    std::vector<DxfTag> tags;
    for (DxfTag tag; cursor.next(tag);) {
        tags.push_back(tag);
    }
    return tags;
}

struct Failure {
    std::size_t line = 0;
    std::size_t offset = 0;
    std::string cause;
};

/// Reads to the end and gives the failure on the way.
Failure failureOf(std::string_view bytes) {
    const auto source = sourceOf(bytes);
    try {
        tagsOf(*source);
    } catch (const DxfFailure& failure) {
        return {failure.position().line, failure.position().offset, failure.cause()};
    }
    ADD_FAILURE() << "nothing failed";
    return {};
}

TEST(TagCursor, ReadsCodesValuesLinesAndOffsets) {
    const auto source = sourceOf("  0\nLINE\n 10\n1.5\n");
    const auto tags = tagsOf(*source);
    ASSERT_EQ(tags.size(), 2U);
    EXPECT_EQ(tags[0].code, 0);
    EXPECT_EQ(tags[0].text, "LINE");
    EXPECT_EQ(tags[0].line, 1U);
    EXPECT_EQ(tags[0].begin, 0U);
    EXPECT_EQ(tags[0].end, 9U);
    EXPECT_EQ(tags[1].code, 10);
    EXPECT_EQ(tags[1].real, 1.5);
    EXPECT_EQ(tags[1].line, 3U);
    EXPECT_EQ(tags[1].begin, 9U);
    EXPECT_EQ(tags[1].end, 17U);
}

TEST(TagCursor, AcceptsEveryKindOfLineEnd) {
    for (const std::string lineEnd : {"\n", "\r\n", "\r"}) {
        const TextFile file = TextFile(lineEnd).group(0, "LINE").group(8, " a b ").group(62, "7");
        const auto source = sourceOf(file.bytes());
        const auto tags = tagsOf(*source);
        ASSERT_EQ(tags.size(), 3U);
        EXPECT_EQ(tags[0].text, "LINE");
        EXPECT_EQ(tags[1].text, " a b ") << "blanks are part of a text";
        EXPECT_EQ(tags[2].integer, 7);
        EXPECT_EQ(tags[2].line, 5U);
    }
}

TEST(TagCursor, LastLineNeedsNoLineEndAndBlankLinesMayFollow) {
    for (const std::string tail : {"", "\n", "\r\n", "\n\n  \n", "\n\x1a"}) {
        const auto source = sourceOf("0\nEOF" + tail);
        const auto tags = tagsOf(*source);
        ASSERT_EQ(tags.size(), 1U);
        EXPECT_EQ(tags[0].text, "EOF");
    }
}

TEST(TagCursor, BlanksAroundCodesAndNumbersAreNoPartOfThem) {
    const auto source = sourceOf("\t 10 \n  -2.5e3 \n  70  \n     3 \n 0 \n LINE \n");
    const auto tags = tagsOf(*source);
    ASSERT_EQ(tags.size(), 3U);
    EXPECT_EQ(tags[0].real, -2500.0);
    EXPECT_EQ(tags[1].integer, 3);
    EXPECT_EQ(tags[2].text, "LINE");
}

TEST(TagCursor, TypesFollowTheGroupCode) {
    const TextFile file = TextFile()
                              .group(1, "12")
                              .group(5, "1F")
                              .group(40, "12")
                              .group(70, "-12")
                              .group(90, "2147483647")
                              .group(160, "9007199254740993")
                              .group(290, "1")
                              .group(310, "0aFF")
                              .group(330, "2A")
                              .group(1004, "00")
                              .group(1040, ".5")
                              .group(1071, "-1")
                              .group(999, "a word")
                              .group(85, "open");
    const auto source = sourceOf(file.bytes());
    const auto tags = tagsOf(*source);
    ASSERT_EQ(tags.size(), 14U);
    using host_dxf::ValueKind;
    const ValueKind kinds[] = {ValueKind::Text,    ValueKind::Handle,     ValueKind::Real,
                               ValueKind::Int16,   ValueKind::Int32,      ValueKind::Int64,
                               ValueKind::Bool,    ValueKind::Chunk,      ValueKind::Handle,
                               ValueKind::Chunk,   ValueKind::Real,       ValueKind::Int32,
                               ValueKind::Comment, ValueKind::Unspecified};
    for (std::size_t i = 0; i < tags.size(); ++i) {
        EXPECT_EQ(tags[i].kind, kinds[i]) << "group " << tags[i].code;
    }
    EXPECT_EQ(tags[2].real, 12.0);
    EXPECT_EQ(tags[3].integer, -12);
    EXPECT_EQ(tags[5].integer, 9007199254740993) << "beyond what a double holds";
    EXPECT_EQ(tags[10].real, 0.5);
}

TEST(TagCursor, NumbersAsOtherProgramsWriteThem) {
    const auto source = sourceOf("70\n3.0\n40\n+1.25\n40\n1e-999\n40\n5.\n62\n+7\n");
    const auto tags = tagsOf(*source);
    ASSERT_EQ(tags.size(), 5U);
    EXPECT_EQ(tags[0].integer, 3);
    EXPECT_EQ(tags[1].real, 1.25);
    EXPECT_EQ(tags[2].real, 0.0);
    EXPECT_EQ(tags[3].real, 5.0);
    EXPECT_EQ(tags[4].integer, 7);
}

TEST(TagCursor, DamagedNumbersNameTheirLine) {
    const struct {
        const char* value;
        const char* code;
    } cases[] = {{"abc", "10"},  {"", "10"},      {"1.0x", "10"},
                 {"inf", "40"},  {"nan", "40"},   {"1e999", "40"},
                 {"0x10", "40"}, {"seven", "70"}, {"", "70"},
                 {"7.5", "70"},  {"--1", "90"},   {"1 2", "10"},
                 {"ABC", "310"}, {"zz", "1004"},  {"99999999999999999999", "160"}};
    for (const auto& damaged : cases) {
        const Failure failure = failureOf(std::string("0\nLINE\n") + damaged.code + "\n" +
                                          damaged.value + "\n0\nEOF\n");
        EXPECT_EQ(failure.line, 4U) << damaged.value;
        EXPECT_NE(failure.cause.find(std::string("group ") + damaged.code), std::string::npos);
        EXPECT_NE(failure.cause.find('"' + std::string(damaged.value) + '"'), std::string::npos);
    }
}

TEST(TagCursor, DamagedCodesNameTheirLine) {
    for (const std::string code : {"x", "", "1x", "99999", "1.5", "-40000"}) {
        const Failure failure = failureOf("0\nLINE\n" + code + "\n1\n0\nEOF\n");
        EXPECT_EQ(failure.line, 3U) << code;
        EXPECT_EQ(failure.cause, "expected a group code, found \"" + code + "\"");
    }
}

TEST(TagCursor, CodeWithoutValueIsAnError) {
    const Failure failure = failureOf("0\nLINE\n10\n");
    EXPECT_EQ(failure.line, 4U);
    EXPECT_EQ(failure.cause, "the file ends before the value of group 10");
    EXPECT_EQ(failureOf("0").line, 2U);
}

TEST(TagCursor, MessagesShowNoRawBytes) {
    const Failure failure = failureOf("\xFF\xD8\x1b[2J" + std::string(100, 'x') + "\n1\n");
    EXPECT_EQ(failure.line, 1U);
    EXPECT_EQ(failure.cause,
              "expected a group code, found \"...[2J" + std::string(34, 'x') + "...\"");
}

TEST(TagCursor, ByteOrderMarkIsNoPartOfTheFirstCode) {
    const auto source = sourceOf("\xEF\xBB\xBF  0\nEOF\n");
    const auto tags = tagsOf(*source);
    ASSERT_EQ(tags.size(), 1U);
    EXPECT_EQ(tags[0].begin, 3U);
    EXPECT_TRUE(source->hasByteOrderMark());
}

TEST(TagCursor, ReadsARangeByItself) {
    const TextFile file = TextFile().group(0, "A").group(1, "one").group(1, "two").group(0, "B");
    const auto source = sourceOf(file.bytes());
    const auto tags = tagsOf(*source);
    ASSERT_EQ(tags.size(), 4U);
    TagCursor cursor(*source, tags[1].begin, tags[2].end, tags[1].line);
    DxfTag tag;
    ASSERT_TRUE(cursor.next(tag));
    EXPECT_EQ(tag.text, "one");
    EXPECT_EQ(tag.line, 3U);
    ASSERT_TRUE(cursor.next(tag));
    EXPECT_EQ(tag.text, "two");
    EXPECT_EQ(tag.line, 5U);
    EXPECT_FALSE(cursor.next(tag));
}

/// The text that begins at an offset of the bytes.
std::string textAt(std::string_view bytes, std::size_t offset) {
    const auto source = sourceOf(bytes);
    return std::string(TagCursor(*source, offset, bytes.size(), 1).textHere());
}

TEST(TagCursor, ATextIsReadFromItsPlaceUpToItsEnd) {
    EXPECT_EQ(textAt("1000\nPVC\n1001\nB\n", 5), "PVC");
    EXPECT_EQ(textAt("1000\r\nPVC\r\n0\r\nEOF\r\n", 6), "PVC");
    EXPECT_EQ(textAt("1000\n a \n", 5), " a ");
    EXPECT_EQ(textAt("1000\n\n1001\nB\n", 5), "") << "a text may be empty";
    EXPECT_EQ(textAt("1000\nlast", 5), "last");
    EXPECT_EQ(textAt("1000\rPVC\r", 5), "PVC");
}

TEST(TagCursor, ATextOfABinaryFileIsReadFromItsPlaceUpToItsEnd) {
    const std::string bytes =
        BinaryFile(BinaryFile::Codes::Wide).text(1000, "PVC").text(1001, "B").bytes();
    EXPECT_EQ(textAt(bytes, bytes.find("PVC")), "PVC");
}

TEST(TagCursor, CodesOfEverySpellingAreRead) {
    const auto source = sourceOf("  0\nA\n00000\nB\n+62\n1\n   5\nC\n 1071\n2\n-1\nD\n0005\nE\n");
    const auto tags = tagsOf(*source);
    std::vector<int> codes;
    for (const DxfTag& tag : tags) {
        codes.push_back(tag.code);
    }
    EXPECT_EQ(codes, (std::vector<int>{0, 0, 62, 5, 1071, -1, 5}));
}

void expectAllTypes(BinaryFile::Codes codes, FileForm form) {
    BinaryFile file(codes);
    file.text(0, "SECTION").real(40, -0.1).int16(70, -2).int32(90, 70000).int64(160, 1LL << 40);
    file.boolean(290, true).chunk(310, std::string_view("\0\x01\xFF", 3)).text(330, "1A");
    file.int16(1070, 32767).int32(1071, -5).text(999, "note").real(1010, 1e300).text(0, "EOF");
    const auto source = sourceOf(file.bytes());
    EXPECT_EQ(source->form(), form);
    const auto tags = tagsOf(*source);
    ASSERT_EQ(tags.size(), 13U);
    EXPECT_EQ(tags[0].text, "SECTION");
    EXPECT_EQ(tags[0].begin, 22U);
    EXPECT_EQ(tags[0].line, 0U);
    EXPECT_EQ(tags[1].real, -0.1);
    EXPECT_EQ(tags[2].integer, -2);
    EXPECT_EQ(tags[3].integer, 70000);
    EXPECT_EQ(tags[4].integer, 1099511627776);
    EXPECT_EQ(tags[5].integer, 1);
    EXPECT_EQ(tags[6].text, std::string_view("\0\x01\xFF", 3));
    EXPECT_EQ(tags[7].text, "1A");
    EXPECT_EQ(tags[8].integer, 32767);
    EXPECT_EQ(tags[9].integer, -5);
    EXPECT_EQ(tags[10].code, 999);
    EXPECT_EQ(tags[11].real, 1e300);
    EXPECT_EQ(tags[12].end, file.bytes().size());
}

TEST(TagCursor, ReadsBinaryWithTwoByteCodes) {
    expectAllTypes(BinaryFile::Codes::Wide, FileForm::BinaryWideCodes);
}

TEST(TagCursor, ReadsBinaryWithOneByteCodes) {
    expectAllTypes(BinaryFile::Codes::Short, FileForm::BinaryShortCodes);
}

TEST(TagCursor, BinaryMayStartWithAComment) {
    for (const auto codes : {BinaryFile::Codes::Short, BinaryFile::Codes::Wide}) {
        const auto source = sourceOf(BinaryFile(codes).text(999, "hello").text(0, "EOF").bytes());
        const auto tags = tagsOf(*source);
        ASSERT_EQ(tags.size(), 2U);
        EXPECT_EQ(tags[0].text, "hello");
        EXPECT_EQ(tags[1].text, "EOF");
    }
}

TEST(TagCursor, BinaryCutAnywhereInsideAGroupIsAnError) {
    const std::string whole =
        BinaryFile(BinaryFile::Codes::Wide).text(0, "A").real(40, 1.0).chunk(310, "abc").bytes();
    // 22 bytes of sentinel, then 4, 10 and 6 bytes: cuts at 26 and 36 fall between groups.
    ASSERT_EQ(whole.size(), 42U);
    for (std::size_t size = 23; size < whole.size(); ++size) {
        if (size == 26 || size == 36) {
            continue;
        }
        const std::size_t group = size < 26 ? 22 : size < 36 ? 26 : 36;
        const Failure failure = failureOf(whole.substr(0, size));
        EXPECT_EQ(failure.line, 0U);
        EXPECT_EQ(failure.offset, group) << "cut at " << size;
    }
}

TEST(TagCursor, BinaryRefusesWhatIsNoNumberAndCodesWithoutAType) {
    const std::string endless = BinaryFile(BinaryFile::Codes::Wide)
                                    .text(0, "A")
                                    .real(40, std::numeric_limits<double>::infinity())
                                    .bytes();
    EXPECT_EQ(failureOf(endless).cause, "group 40 needs a finite number");
    EXPECT_EQ(failureOf(endless).offset, 26U);
    const std::string unknown =
        BinaryFile(BinaryFile::Codes::Wide).text(0, "A").text(85, "").bytes();
    EXPECT_EQ(failureOf(unknown).cause, "unknown group 85");
}

} // namespace
