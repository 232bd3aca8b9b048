#include "dxf/XdataSections.h"
#include "DxfFile.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using dxf_test::BinaryFile;
using dxf_test::TextFile;
using host_dxf::DxfSource;
using host_dxf::DxfTag;
using host_dxf::SourceRange;
using host_dxf::TagCursor;
using host_dxf::XdataSection;
using host_dxf::XdataSections;

namespace {

/// A file of objects, each from one group 0 to the next.
class Objects {
public:
    explicit Objects(const std::string& bytes) : source_(DxfSource::fromBytes(bytes, "a.dxf")) {
        TagCursor cursor(*source_);
        for (DxfTag tag; cursor.next(tag);) {
            if (tag.code == 0) {
                ranges_.push_back({tag.begin, tag.end, static_cast<std::uint32_t>(tag.line), 0});
            }
            SourceRange& range = ranges_.back();
            if (tag.code == 1001 && range.xdataOffset == 0) {
                range.xdataOffset = static_cast<std::uint32_t>(tag.begin - range.begin);
            }
            range.end = tag.end;
        }
    }

    const DxfSource& source() const { return *source_; }
    const SourceRange& at(std::size_t index) const { return ranges_.at(index); }

private:
    std::shared_ptr<const DxfSource> source_;
    std::vector<SourceRange> ranges_;
};

/// "name=text", or the name alone for a section without text; "" behind the last.
std::string shown(XdataSections& sections, std::size_t index) {
    const XdataSection* section = sections.at(index);
    if (section == nullptr) {
        return "";
    }
    const std::string name(section->application);
    return section->hasText ? name + "=" + std::string(section->text) : name;
}

std::vector<std::string> allOf(XdataSections& sections) {
    std::vector<std::string> lines;
    for (std::size_t i = 0; sections.at(i) != nullptr; ++i) {
        lines.push_back(shown(sections, i));
    }
    return lines;
}

using Lines = std::vector<std::string>;

TextFile pipe(const std::string& lineEnd = "\n") {
    return TextFile(lineEnd)
        .group(0, "LINE")
        .group(8, "0")
        .group(1001, "A")
        .group(1000, "one")
        .group(1000, "two")
        .group(1001, "B")
        .group(1070, "3")
        .group(1001, "C")
        .group(1002, "{")
        .group(1040, "1.5")
        .group(1000, "deep")
        .group(1002, "}")
        .group(1001, "D")
        .group(1000, "")
        .group(0, "EOF");
}
const Lines kOfPipe{"A=one", "B", "C=deep", "D="};

TEST(XdataSections, GiveTheFirstTextOfEachApplication) {
    for (const std::string lineEnd : {"\n", "\r\n", "\r"}) {
        const Objects file(pipe(lineEnd).bytes());
        XdataSections sections(file.source());
        sections.turnTo(file.at(0));
        EXPECT_EQ(allOf(sections), kOfPipe);
    }
}

TEST(XdataSections, AreReadInAnyOrderAndAsOftenAsOneLikes) {
    const Objects file(pipe().bytes());
    XdataSections sections(file.source());
    sections.turnTo(file.at(0));
    EXPECT_EQ(shown(sections, 2), "C=deep");
    EXPECT_EQ(shown(sections, 0), "A=one");
    EXPECT_EQ(shown(sections, 9), "");
    EXPECT_EQ(shown(sections, 3), "D=");
    EXPECT_EQ(shown(sections, 9), "");
    EXPECT_EQ(shown(sections, 1), "B");
}

TEST(XdataSections, OneObjectEndsWhereTheNextBegins) {
    const Objects file(TextFile()
                           .group(0, "LINE")
                           .group(1001, "A")
                           .group(1000, "first")
                           .group(0, "LINE")
                           .group(8, "0")
                           .group(1001, "A")
                           .group(1000, "second")
                           .group(1001, "B")
                           .group(1000, "more")
                           .group(0, "EOF")
                           .bytes());
    XdataSections sections(file.source());
    sections.turnTo(file.at(0));
    EXPECT_EQ(allOf(sections), (Lines{"A=first"}));
    sections.turnTo(file.at(1));
    EXPECT_EQ(allOf(sections), (Lines{"A=second", "B=more"}));
}

TEST(XdataSections, TurningAwayInTheMiddleAndBackBeginsAnew) {
    const Objects file(pipe().bytes() + pipe().bytes());
    XdataSections sections(file.source());
    sections.turnTo(file.at(0));
    EXPECT_EQ(shown(sections, 1), "B");
    sections.turnTo(file.at(2)); // the second pipe, behind the first EOF
    EXPECT_EQ(shown(sections, 0), "A=one");
    sections.turnTo(file.at(0));
    EXPECT_EQ(allOf(sections), kOfPipe);
    sections.turnTo(file.at(0));
    EXPECT_EQ(allOf(sections), kOfPipe);
}

TEST(XdataSections, OneApplicationTwiceGivesTwoSections) {
    const Objects file(
        TextFile().group(0, "LINE").group(1001, "A").group(1001, "A").group(1000, "later").bytes());
    XdataSections sections(file.source());
    sections.turnTo(file.at(0));
    EXPECT_EQ(allOf(sections), (Lines{"A", "A=later"}));
}

TEST(XdataSections, CommentsAndUnusualSpellingsAreReadOver) {
    const Objects file(TextFile()
                           .raw("0\nLINE\n1001\nA\n999\nnot a text\n 1000\none\n1000 \ntwo\n")
                           .raw("01001\nB\n999\n1000\n\t1000\nthree\n0\nEOF\n")
                           .bytes());
    XdataSections sections(file.source());
    sections.turnTo(file.at(0));
    EXPECT_EQ(allOf(sections), (Lines{"A=one", "B=three"}));
}

TEST(XdataSections, TextsKeepTheirBlanksAndMayLookLikeCodes) {
    const Objects file(TextFile()
                           .group(0, "LINE")
                           .group(1001, "1001")
                           .group(1000, "1000")
                           .group(1001, " A ")
                           .group(1000, "  x ")
                           .bytes());
    XdataSections sections(file.source());
    sections.turnTo(file.at(0));
    EXPECT_EQ(allOf(sections), (Lines{"1001=1000", " A =  x "}));
}

TEST(XdataSections, ExtendedDataEndsAtACodeThatIsNoneOfIts) {
    const Objects file(TextFile().raw("0\nLINE\n1001\nA\n62\n7\n1000\nlate\n0\nEOF\n").bytes());
    XdataSections sections(file.source());
    sections.turnTo(file.at(0));
    EXPECT_EQ(allOf(sections), (Lines{"A"}));
}

TEST(XdataSections, BinaryFilesGiveTheSame) {
    for (const auto codes : {BinaryFile::Codes::Short, BinaryFile::Codes::Wide}) {
        const Objects file(BinaryFile(codes)
                               .text(0, "LINE")
                               .text(8, "0")
                               .text(1001, "A")
                               .text(1000, "one")
                               .text(1000, "two")
                               .text(1001, "B")
                               .int16(1070, 3)
                               .text(1001, "C")
                               .text(1002, "{")
                               .real(1040, 1.5)
                               .text(1000, "deep")
                               .text(1002, "}")
                               .text(1001, "D")
                               .text(1000, "")
                               .text(0, "EOF")
                               .bytes());
        XdataSections sections(file.source());
        sections.turnTo(file.at(0));
        EXPECT_EQ(allOf(sections), kOfPipe);
    }
}

} // namespace
