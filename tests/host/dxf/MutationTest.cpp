#include "DxfFile.h"
#include "LoadedDrawing.h"

#include "database/AcDbXrecord.h"
#include "dxf/LoadDxf.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <random>

using dxf_test::BinaryFile;
using dxf_test::LoadedDrawing;
using dxf_test::TextFile;

namespace {

/// A drawing with something of every kind that the reader looks into.
std::string textSeed() {
    TextFile file;
    file.section("HEADER").group(9, "$ACADVER").group(1, "AC1015").group(9, "$DWGCODEPAGE");
    file.group(3, "ANSI_936").group(9, "$HANDSEED").group(5, "FF").endSection();
    file.section("TABLES").group(0, "TABLE").group(2, "APPID").group(5, "9");
    file.group(0, "APPID").group(5, "A").group(2, "\xB9\xDC").group(0, "ENDTAB");
    file.group(0, "TABLE").group(2, "LAYER").group(0, "LAYER").group(2, "0").group(62, "7");
    file.group(1001, "\xB9\xDC").group(1000, "x").group(0, "ENDTAB");
    file.group(0, "TABLE").group(2, "BLOCK_RECORD").group(0, "BLOCK_RECORD").group(5, "1F");
    file.group(2, "*Model_Space").group(0, "ENDTAB").endSection().section("BLOCKS");
    file.group(0, "BLOCK").group(2, "W").group(10, 1.0).group(0, "CIRCLE").group(40, 1.0);
    file.group(0, "ENDBLK").endSection().section("ENTITIES");
    file.group(0, "LINE").group(5, "30").group(102, "{ACAD_XDICTIONARY").group(360, "70");
    file.group(102, "}").group(330, "1F").group(100, "AcDbEntity").group(8, "0").group(10, 1.5);
    file.group(1001, "\xB9\xDC").group(1000, "\\U+6C61^J").group(1010, 1.0).group(1020, 2.0);
    file.group(1004, "00FF").group(1005, "30").group(1070, "1");
    file.group(0, "LWPOLYLINE").group(90, "2").group(10, 0.0).group(20, 0.0).group(42, 1.0);
    file.group(10, 1.0).group(20, 0.0).group(0, "SPLINE").group(71, "1").group(40, 0.0);
    file.group(40, 0.0).group(40, 1.0).group(40, 1.0).group(10, 0.0).group(10, 1.0);
    file.group(0, "POLYLINE").group(70, "8").group(0, "VERTEX").group(10, 1.0).group(0, "SEQEND");
    file.group(0, "INSERT").group(66, "1").group(2, "W").group(0, "ATTRIB").group(1, "v");
    file.group(0, "SEQEND").group(0, "TEXT").group(1, "\xCE\xDB").group(7, "S").group(210, 1.0);
    file.group(0, "ELLIPSE").group(11, 1.0).group(40, 0.5).group(0, "HATCH").group(91, "1");
    file.endSection().section("OBJECTS").group(0, "DICTIONARY").group(5, "C").group(3, "A");
    file.group(350, "70").group(0, "XRECORD").group(5, "70").group(100, "AcDbXrecord");
    file.group(280, "1").group(10, 1.0).group(310, "AB").group(330, "30").group(0, "LAYOUT");
    file.group(100, "AcDbLayout").group(1, "Model").group(330, "1F");
    return file.endSection().endOfFile().bytes();
}

std::string binarySeed(BinaryFile::Codes codes) {
    BinaryFile file(codes);
    file.text(0, "SECTION").text(2, "ENTITIES").text(0, "LINE").text(5, "30").text(8, "0");
    file.real(10, 1.0).int16(62, 3).text(1001, "A").text(1000, "x").chunk(1004, "abc");
    file.int32(1071, 7).text(0, "TEXT").text(1, "\\U+6C61").real(40, 1.0);
    return file.text(0, "ENDSEC").text(0, "EOF").bytes();
}

/// Changes a few bytes: other values, pieces cut out, pieces doubled, the file cut short.
std::string mutated(std::string bytes, std::mt19937& random) {
    static const std::string interesting("\0\n\r 09-{}\\^\xFF\x80\xB9zA", 17);
    const auto below = [&random](std::size_t bound) {
        return std::uniform_int_distribution<std::size_t>(0, bound - 1)(random);
    };
    for (std::size_t changes = 1 + below(3); changes > 0 && !bytes.empty(); --changes) {
        const std::size_t place = below(bytes.size());
        const std::size_t length = 1 + below(24);
        switch (below(5)) {
        case 0:
            bytes[place] = interesting[below(interesting.size())];
            break;
        case 1:
            bytes[place] = static_cast<char>(below(256));
            break;
        case 2:
            bytes.erase(place, length);
            break;
        case 3:
            bytes.insert(place, bytes.substr(below(bytes.size()), length));
            break;
        default:
            bytes.resize(place);
        }
    }
    return bytes;
}

/// Reads all that a drawing can be asked for.
std::size_t readThrough(const AcDbDatabase& database) {
    std::size_t lines = 0;
    const auto& objects = database.objects();
    for (std::size_t place = 0; place < objects.size(); ++place) {
        const AcDbObject* const object = objects.at(place);
        if (object == nullptr) {
            continue;
        }
        lines += dxf_test::xdataLines(*object).size();
        if (const auto* const record = AcDbXrecord::cast(object)) {
            resbuf* chain = nullptr;
            record->rbChain(&chain);
            acutRelRb(chain);
        }
    }
    return lines;
}

/// Either a drawing, or none and one line that names the file.
void expectOneOutcome(const std::string& bytes, std::size_t& read, std::size_t& refused) {
    std::string error;
    const auto database = host_dxf::loadDrawingFromBytes(bytes, "m.dxf", error);
    if (database != nullptr) {
        ++read;
        EXPECT_TRUE(error.empty()) << error;
        readThrough(*database);
        return;
    }
    ++refused;
    const bool named = error.starts_with("m.dxf:");
    EXPECT_TRUE(named) << error;
    EXPECT_EQ(error.find('\n'), std::string::npos) << error;
    const std::size_t place = error.find_first_of("0123456789");
    EXPECT_TRUE(place == 6 || error.starts_with("m.dxf:offset ")) << error;
}

void mutate(const std::string& seed, unsigned start, int rounds) {
    std::mt19937 random(start);
    std::size_t read = 0;
    std::size_t refused = 0;
    for (int round = 0; round < rounds; ++round) {
        expectOneOutcome(mutated(seed, random), read, refused);
    }
    // Were all refused or all read, the changes would test next to nothing.
    EXPECT_GT(read, static_cast<std::size_t>(rounds) / 50);
    EXPECT_GT(refused, static_cast<std::size_t>(rounds) / 50);
}

TEST(Mutation, SeedsThemselvesAreRead) {
    EXPECT_EQ(LoadedDrawing::fromBytes(textSeed()).modelSpace().size(), 8U);
    EXPECT_EQ(LoadedDrawing::fromBytes(binarySeed(BinaryFile::Codes::Wide)).modelSpace().size(),
              2U);
    EXPECT_EQ(LoadedDrawing::fromBytes(binarySeed(BinaryFile::Codes::Short)).modelSpace().size(),
              2U);
}

TEST(Mutation, DamagedTextFilesGiveADrawingOrOneLine) {
    mutate(textSeed(), 1, 2000);
}

TEST(Mutation, DamagedBinaryFilesGiveADrawingOrOneLine) {
    mutate(binarySeed(BinaryFile::Codes::Wide), 2, 3000);
    mutate(binarySeed(BinaryFile::Codes::Short), 3, 3000);
}

TEST(Mutation, DamagedExampleDrawingGivesADrawingOrOneLine) {
    std::ifstream file(TKVLT_EXAMPLES_DIR "/town.dxf", std::ios::binary);
    const std::string town{std::istreambuf_iterator<char>(file), {}};
    ASSERT_GT(town.size(), 10000U);
    mutate(town, 4, 200);
}

TEST(Mutation, FileCutAtAnyPlaceIsRefused) {
    // Everything before the last group of the text file is needed.
    const std::string text = textSeed();
    const std::size_t whole = text.size() - std::string("\n").size();
    for (std::size_t size = 0; size < whole; ++size) {
        std::string error;
        EXPECT_EQ(host_dxf::loadDrawingFromBytes(text.substr(0, size), "m.dxf", error), nullptr)
            << "cut at " << size;
        EXPECT_TRUE(error.starts_with("m.dxf:")) << error;
    }
    const std::string binary = binarySeed(BinaryFile::Codes::Wide);
    for (std::size_t size = 0; size < binary.size(); ++size) {
        std::string error;
        EXPECT_EQ(host_dxf::loadDrawingFromBytes(binary.substr(0, size), "m.dxf", error), nullptr)
            << "cut at " << size;
    }
}

} // namespace
