#include "DxfFile.h"
#include "LoadedDrawing.h"

#include "dxf/LoadDxf.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

using dxf_test::BinaryFile;
using dxf_test::loadError;
using dxf_test::TextFile;

namespace {

const std::string entities = "0\nSECTION\n2\nENTITIES\n";
const std::string end = "0\nENDSEC\n0\nEOF\n";

TEST(LoadErrors, EmptyAndForeignFiles) {
    EXPECT_EQ(loadError(""), "a.dxf:1: the file is empty");
    EXPECT_EQ(loadError(std::string("AC1032\0\0\0\0\n1\n", 14)),
              "a.dxf:1: not a DXF drawing but a DWG one");
    EXPECT_EQ(loadError("%PDF-1.7\n1 0 obj\n"),
              "a.dxf:1: not a DXF drawing: expected a group code, found \"%PDF-1.7\"");
    EXPECT_EQ(loadError(std::string("\xFF\xD8\xFF\xE0\0\x10JFIF\0", 11)),
              "a.dxf:1: not a DXF drawing: expected a group code, found \"......JFIF.\"");
}

TEST(LoadErrors, StructureNamesTheLineOfWhatCameInstead) {
    EXPECT_EQ(loadError(entities + "0\nLINE\n8\n0\n"), "a.dxf:9: the file ends, expected group 0");
    EXPECT_EQ(loadError(entities + "0\nLINE\n8\n0\n0\nENDSEC\n"),
              "a.dxf:11: the file ends, expected SECTION or EOF");
    EXPECT_EQ(loadError(entities + "0\nLINE\n8\n0\n0\nEOF\n"),
              "a.dxf:9: expected an entity, found \"EOF\"");
    EXPECT_EQ(loadError(entities + "0\nSECTION\n2\nOBJECTS\n" + end),
              "a.dxf:5: expected an entity, found \"SECTION\"");
    EXPECT_EQ(loadError("0\nLINE\n0\nEOF\n"), "a.dxf:1: expected SECTION or EOF, found \"LINE\"");
    EXPECT_EQ(loadError("8\nLINE\n0\nEOF\n"), "a.dxf:1: expected SECTION or EOF, found group 8");
    EXPECT_EQ(loadError("0\nSECTION\n0\nENDSEC\n0\nEOF\n"),
              "a.dxf:3: expected a section's name (group 2), found \"ENDSEC\"");
    EXPECT_EQ(loadError(entities + "8\n0\n" + end), "a.dxf:5: expected group 0, found group 8");
    EXPECT_EQ(loadError("0\nSECTION\n2\nHEADER\n0\nLINE\n" + end),
              "a.dxf:5: expected a variable (group 9) or ENDSEC, found \"LINE\"");
    EXPECT_EQ(loadError("0\nSECTION\n2\nTABLES\n0\nLAYER\n" + end),
              "a.dxf:5: expected TABLE or ENDSEC, found \"LAYER\"");
    EXPECT_EQ(loadError("0\nSECTION\n2\nTABLES\n0\nTABLE\n2\nLAYER\n" + end),
              "a.dxf:9: expected ENDTAB, found \"ENDSEC\"");
    EXPECT_EQ(loadError("0\nSECTION\n2\nBLOCKS\n0\nLINE\n" + end),
              "a.dxf:5: expected BLOCK or ENDSEC, found \"LINE\"");
    EXPECT_EQ(loadError("0\nSECTION\n2\nBLOCKS\n0\nBLOCK\n2\nA\n" + end),
              "a.dxf:9: expected an entity, found \"ENDSEC\"");
    EXPECT_EQ(loadError("0\nSECTION\n2\nBLOCKS\n0\nBLOCK\n2\nA\n0\nBLOCK\n2\nB\n" + end),
              "a.dxf:9: expected an entity, found \"BLOCK\"");
    EXPECT_EQ(loadError("0\nSECTION\n2\nBLOCKS\n0\nBLOCK\n8\n0\n0\nENDBLK\n" + end),
              "a.dxf:5: a BLOCK without a name (group 2)");
    EXPECT_EQ(loadError("0\nSECTION\n2\nMINE\n1\nx\n0\nEOF\n"),
              "a.dxf:7: expected ENDSEC, found \"EOF\"");
    EXPECT_EQ(loadError("0\nSECTION\n2\nMINE\n1\nx\n"), "a.dxf:7: the file ends, expected ENDSEC");
    EXPECT_EQ(loadError("0\nSECTION\n2\nOBJECTS\n0\nEOF\n"),
              "a.dxf:5: expected an object or ENDSEC, found \"EOF\"");
}

TEST(LoadErrors, SequencesMustBeWhole) {
    EXPECT_EQ(loadError(entities + "0\nPOLYLINE\n8\n0\n0\nVERTEX\n8\n0\n0\nLINE\n8\n0\n" + end),
              "a.dxf:13: expected the SEQEND of the POLYLINE of line 5, found \"LINE\"");
    EXPECT_EQ(loadError(entities + "0\nINSERT\n2\nA\n0\nATTRIB\n8\n0\n" + end),
              "a.dxf:13: expected the SEQEND of the INSERT of line 5, found \"ENDSEC\"");
    EXPECT_EQ(loadError(entities + "0\nVERTEX\n8\n0\n" + end),
              "a.dxf:5: expected an entity, found \"VERTEX\"");
    EXPECT_EQ(loadError(entities + "0\nSEQEND\n8\n0\n" + end),
              "a.dxf:5: expected an entity, found \"SEQEND\"");
}

TEST(LoadErrors, DamagedGroups) {
    EXPECT_EQ(loadError(entities + "0\nLINE\n10\nabc\n" + end),
              "a.dxf:8: group 10 needs a number, found \"abc\"");
    EXPECT_EQ(loadError(entities + "0\nLINE\n1O\n1.5\n" + end),
              "a.dxf:7: expected a group code, found \"1O\"");
    EXPECT_EQ(loadError(entities + "0\nLINE\n62\nred\n" + end),
              "a.dxf:8: group 62 needs a whole number, found \"red\"");
    EXPECT_EQ(loadError(entities + "0\nLINE\n5\nXYZ\n" + end),
              "a.dxf:8: group 5 needs a handle, found \"XYZ\"");
    EXPECT_EQ(loadError(entities + "0\nLINE\n330\n\n" + end),
              "a.dxf:8: group 330 needs a handle, found \"\"");
    EXPECT_EQ(loadError(entities + "0\nHATCH\n10\n1.0\n40\n1,5\n" + end),
              "a.dxf:10: group 40 needs a number, found \"1,5\"")
        << "what is only kept is looked at as well";
    EXPECT_EQ(loadError(entities + "0\nLINE\n8"), "a.dxf:8: the file ends before the value of "
                                                  "group 8");
    EXPECT_EQ(loadError(entities + "0\nLINE\n8\n0\n1001\nA\n1040\nx\n" + end),
              "a.dxf:12: group 1040 needs a number, found \"x\"");
}

TEST(LoadErrors, HandlesStandOnce) {
    EXPECT_EQ(loadError(entities + "0\nLINE\n5\n2f\n8\n0\n0\nARC\n8\n0\n5\n2F\n" + end),
              "a.dxf:16: handle \"2F\" is used twice");
    EXPECT_EQ(loadError(entities + "0\nPOLYLINE\n5\n2F\n0\nVERTEX\n5\n2F\n0\nSEQEND\n" + end),
              "a.dxf:8: handle \"2F\" is used twice");
    EXPECT_EQ(loadError("0\nSECTION\n2\nTABLES\n0\nTABLE\n2\nLAYER\n5\n2\n0\nLAYER\n5\n2\n2\n0\n"
                        "0\nENDTAB\n" +
                        end),
              "a.dxf:14: handle \"2\" is used twice");
    EXPECT_EQ(loadError("0\nSECTION\n2\nOBJECTS\n0\nDICTIONARY\n5\nC\n0\nXRECORD\n5\nC\n" + end),
              "a.dxf:12: handle \"C\" is used twice");
    EXPECT_EQ(loadError("0\nSECTION\n2\nTABLES\n0\nTABLE\n2\nVPORT\n0\nVPORT\n5\n2\n0\nENDTAB\n"
                        "0\nENDSEC\n" +
                        entities + "0\nLINE\n5\n2\n" + end),
              "a.dxf:24: handle \"2\" is used twice");
}

TEST(LoadErrors, BinaryFilesNameTheOffset) {
    BinaryFile file(BinaryFile::Codes::Wide);
    file.text(0, "SECTION").text(2, "ENTITIES").text(0, "LINE");
    const std::size_t place = file.bytes().size();
    file.text(5, "zz").text(0, "ENDSEC").text(0, "EOF");
    EXPECT_EQ(loadError(file.bytes()),
              "a.dxf:offset " + std::to_string(place) + ": group 5 needs a handle, found \"zz\"");
    EXPECT_EQ(loadError(file.bytes().substr(0, place)),
              "a.dxf:offset " + std::to_string(place) + ": the file ends, expected group 0");
    EXPECT_EQ(loadError(file.bytes().substr(0, 22)),
              "a.dxf:offset 22: the file ends, expected SECTION or EOF");
}

std::string fileError(const std::string& path) {
    std::string error;
    EXPECT_EQ(host_dxf::loadDrawing(path, error), nullptr);
    return error;
}

TEST(LoadErrors, FilesThatCannotBeOpened) {
    const std::string folder = testing::TempDir();
    const std::string missing = folder + "no such drawing.dxf";
    EXPECT_EQ(fileError(missing), missing + ": cannot open: No such file or directory");
    EXPECT_EQ(fileError(folder), folder + ": cannot open: Is a directory");
    EXPECT_EQ(fileError("/dev/null"), "/dev/null: cannot open: not a regular file");
}

TEST(LoadErrors, ErrorNamesThePathAsItWasGiven) {
    const std::string path = testing::TempDir() + "\xE7\xAE\xA1 1.dxf";
    std::ofstream(path) << "0\nSECTION\n2\nENTITIES\n0\nLINE\n40\nx\n";
    EXPECT_EQ(fileError(path), path + ":8: group 40 needs a number, found \"x\"");
    std::filesystem::remove(path);
}

} // namespace
