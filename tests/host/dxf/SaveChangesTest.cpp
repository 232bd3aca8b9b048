#include "DxfFile.h"
#include "SavedDrawing.h"

#include "database/AcDbArc.h"
#include "database/AcDbAttribute.h"
#include "database/AcDbBlockReference.h"
#include "database/AcDbCircle.h"
#include "database/AcDbLine.h"
#include "database/AcDbPolyline.h"
#include "database/AcDbSpline.h"
#include "database/AcDbText.h"
#include "dxf/SaveDxf.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

// The expected bytes of each test are those of the file with the one piece replaced that the change
// is about, written out by hand.

using dxf_test::addEntity;
using dxf_test::BinaryFile;
using dxf_test::changeObject;
using dxf_test::LoadedDrawing;
using dxf_test::replaced;
using dxf_test::savedBytes;
using dxf_test::setXdata;

namespace {

/// A drawing with groups the host knows nothing of, comments, odd spellings and unknown sections.
const std::string file = R"(999
made by hand
  0
SECTION
  2
HEADER
  9
$ACADVER
  1
AC1015
  9
$DWGCODEPAGE
  3
ANSI_936
  9
$CLAYER
  8
0
  9
$HANDSEED
  5
200
  0
ENDSEC
  0
SECTION
  2
TABLES
  0
TABLE
  2
APPID
  5
9
 70
     2
  0
APPID
  5
A
  2
ONE
 70
     0
  0
APPID
  5
B
  2
TWO
 70
     0
  0
ENDTAB
  0
TABLE
  2
LAYER
  5
2
 70
     2
  0
LAYER
  5
10
  2
0
 70
     0
 62
     7
  6
CONTINUOUS
  0
LAYER
  5
11
  2
Pipes
 70
    64
 62
     3
  6
CONTINUOUS
290
     1
999
last of the layers
  0
ENDTAB
  0
TABLE
  2
BLOCK_RECORD
  5
1
 70
     2
  0
BLOCK_RECORD
  5
1F
  2
*Model_Space
  0
BLOCK_RECORD
  5
1D
  2
Well
  0
ENDTAB
  0
ENDSEC
  0
SECTION
  2
BLOCKS
  0
BLOCK
  5
20
330
1F
  2
*Model_Space
 10
0.0
  0
ENDBLK
  5
21
  0
BLOCK
  5
22
330
1D
100
AcDbEntity
  8
0
100
AcDbBlockBegin
  2
Well
 70
     0
 10
1.0
 20
2.0
 30
0.0
  3
Well
  0
ENDBLK
  5
23
  0
ENDSEC
  0
SECTION
  2
ENTITIES
  0
LINE
  5
30
330
1F
100
AcDbEntity
  8
PIPES
 48
1.50
420
 255
100
AcDbLine
 10
 1.50
 20
2.0
 30
0
999
the end
 11
+4.000E0
 21
5.
 31
6.0
1001
ONE
1000
first
999
in between
1070
     7
1001
TWO
1040
 2.50
999
before the polyline
  0
LWPOLYLINE
  5
31
330
1F
100
AcDbEntity
  8
0
100
AcDbPolyline
 90
        3
 70
   128
 43
0.0
 10
0.00
 20
0.00
 91
     5
 10
1.00
 20
0.00
 42
0.50
 91
     6
 10
2.00
 20
0.00
 91
     7
  0
INSERT
  5
32
330
1F
100
AcDbEntity
  8
0
100
AcDbBlockReference
 66
     1
  2
well
 10
7.0
 20
8.0
 30
0.0
  0
ATTRIB
  5
33
  8
0
100
AcDbText
 10
7.0
 20
8.0
 40
1.0
  1
W-1
100
AcDbAttribute
  2
NO
 70
     0
  0
SEQEND
  5
34
  8
0
  0
ACAD_PROXY_ENTITY
  5
35
  8
0
 90
      498
310
00FF10
  0
TEXT
  5
36
330
1F
100
AcDbEntity
  8
0
100
AcDbText
 10
0.0
 20
0.0
 30
0.0
 40
2.5
  1
old ^J text
100
AcDbText
  0
ENDSEC
  0
SECTION
  2
OBJECTS
  0
DICTIONARY
  5
C
330
0
100
AcDbDictionary
281
     1
  3
FIRST
350
40
  3
GONE
350
99
  3
SECOND
350
41
  0
XRECORD
  5
40
330
C
100
AcDbXrecord
280
     1
  8
 500
 10
1.00
 20
2.00
 30
3.00
1
last
  0
THING
  5
41
330
C
  1
anything
  0
ENDSEC
  0
SECTION
  2
MINE
  1
 free
  0
ENDSEC
  0
EOF
)";

class SaveChanges : public testing::Test {
protected:
    AcDbObjectId id(std::uint64_t handle) const { return drawing_.byHandle(handle); }
    std::string saved() const { return savedBytes(drawing_.database()); }
    void expect(const std::string& from, const std::string& to) const {
        EXPECT_EQ(saved(), replaced(file, from, to));
    }

    LoadedDrawing drawing_ = LoadedDrawing::fromBytes(file);
};

TEST_F(SaveChanges, NothingChanged) {
    EXPECT_EQ(saved(), file);
}

TEST_F(SaveChanges, NothingChangedByWritingWhatStandsThere) {
    changeObject<AcDbLine>(id(0x30), [](AcDbLine& line) { line.setStartPoint({1.5, 2.0, 0.0}); });
    changeObject<AcDbText>(id(0x36), [](AcDbText& text) { text.setTextString(L"old \n text"); });
    EXPECT_EQ(saved(), file);
}

TEST_F(SaveChanges, MovedLineChangesOneCoordinate) {
    changeObject<AcDbLine>(id(0x30), [](AcDbLine& line) { line.setEndPoint({4.0, 5.0, 7.0}); });
    expect(" 31\n6.0\n", " 31\n7.0\n");
}

TEST_F(SaveChanges, GroupsThatAreMissingComeBehindTheirNeighbours) {
    changeObject<AcDbLine>(id(0x30), [](AcDbLine& line) { line.setNormal({0.0, 1.0, 0.0}); });
    changeObject<AcDbText>(id(0x36),
                           [](AcDbText& text) { text.setHorizontalMode(AcDb::kTextRight); });
    std::string expected = replaced(file, " 31\n6.0\n", " 31\n6.0\n210\n0.0\n220\n1.0\n230\n0.0\n");
    // Of the extrusion the x is 0 as it was before, so two groups are enough.
    expected = replaced(expected, "210\n0.0\n220\n", "220\n");
    expected = replaced(expected, "old ^J text\n", "old ^J text\n 72\n2\n");
    EXPECT_EQ(saved(), expected);
}

TEST_F(SaveChanges, ColourNumberTakesTheTrueColoursPlace) {
    changeObject<AcDbLine>(id(0x30), [](AcDbLine& line) { line.setColorIndex(5); });
    expect("PIPES\n 48\n1.50\n420\n 255\n", "PIPES\n 62\n5\n 48\n1.50\n");
}

TEST_F(SaveChanges, ExtendedDataOfOneApplicationChangeAlone) {
    setXdata(id(0x30), L"ONE", {L"\x6C61"});
    expect("ONE\n1000\nfirst\n999\nin between\n1070\n     7\n", "ONE\n1000\n\xCE\xDB\n");
}

TEST_F(SaveChanges, ExtendedDataTakenOut) {
    setXdata(id(0x30), L"two", {});
    expect("1001\nTWO\n1040\n 2.50\n", "");
}

TEST_F(SaveChanges, ExtendedDataOfANewApplicationBringItsRecord) {
    setXdata(id(0x30), L"THREE", {L"x"});
    // The ten tables and records that the file leaves unsaid (three tables, three linetypes, two
    // styles, ACAD, a paper space) hold 200 to 209; 70 announces three records.
    std::string expected = replaced(file, "999\nbefore the polyline\n",
                                    "1001\nTHREE\n1000\nx\n999\nbefore the polyline\n");
    expected = replaced(expected, "TWO\n 70\n     0\n  0\nENDTAB\n",
                        "TWO\n 70\n     0\n  0\nAPPID\n  5\n20A\n330\n9\n100\n"
                        "AcDbSymbolTableRecord\n100\nAcDbRegAppTableRecord\n  2\nTHREE\n 70\n0\n"
                        "  0\nENDTAB\n");
    expected = replaced(expected, "APPID\n  5\n9\n 70\n     2\n", "APPID\n  5\n9\n 70\n3\n");
    expected = replaced(expected, "$HANDSEED\n  5\n200\n", "$HANDSEED\n  5\n20B\n");
    EXPECT_EQ(saved(), expected);
}

TEST_F(SaveChanges, ErasedLineLeavesTheCommentOfTheNextEntity) {
    dxf_test::eraseObject(id(0x30));
    const std::size_t begin = file.find("  0\nLINE\n");
    const std::size_t end = file.find("999\nbefore the polyline\n");
    EXPECT_EQ(saved(), file.substr(0, begin) + file.substr(end));
    changeObject<AcDbText>(id(0x36), [](AcDbText& text) { text.setHeight(2.5); });
    AcDbObject* line = nullptr;
    ASSERT_EQ(acdbOpenAcDbObject(line, id(0x30), AcDb::kForWrite, true), Acad::eOk);
    line->erase(false);
    line->close();
    EXPECT_EQ(saved(), file) << "brought back";
}

TEST_F(SaveChanges, ErasedReferenceGoesWithAttributesAndEndMark) {
    dxf_test::eraseObject(id(0x32));
    const std::size_t begin = file.find("  0\nINSERT\n");
    const std::size_t end = file.find("  0\nACAD_PROXY_ENTITY\n");
    EXPECT_EQ(saved(), file.substr(0, begin) + file.substr(end));
}

TEST_F(SaveChanges, LastAttributeErasedTakesTheEndMarkAlong) {
    dxf_test::eraseObject(id(0x33));
    const std::size_t begin = file.find("  0\nATTRIB\n");
    const std::size_t end = file.find("  0\nACAD_PROXY_ENTITY\n");
    EXPECT_EQ(saved(),
              replaced(file.substr(0, begin) + file.substr(end), " 66\n     1\n", " 66\n0\n"));
}

TEST_F(SaveChanges, VertexOfALightPolylineMoves) {
    changeObject<AcDbPolyline>(id(0x31), [](AcDbPolyline& polyline) {
        polyline.setPointAt(1, {1.0, 0.25});
        polyline.setBulgeAt(2, -1.0);
    });
    EXPECT_EQ(saved(), replaced(replaced(file, " 10\n1.00\n 20\n0.00\n", " 10\n1.00\n 20\n0.25\n"),
                                " 20\n0.00\n 91\n     7\n", " 20\n0.00\n 42\n-1.0\n 91\n     7\n"));
}

TEST_F(SaveChanges, VerticesOfALightPolylineComeAndGo) {
    changeObject<AcDbPolyline>(id(0x31), [](AcDbPolyline& polyline) {
        polyline.removeVertexAt(0);
        polyline.setClosed(1);
    });
    std::string expected = replaced(file, " 10\n0.00\n 20\n0.00\n 91\n     5\n", "");
    expected = replaced(expected, " 90\n        3\n 70\n   128\n", " 90\n2\n 70\n129\n");
    EXPECT_EQ(saved(), expected) << "the flag for linetypes stays";
    changeObject<AcDbPolyline>(id(0x31), [](AcDbPolyline& polyline) {
        polyline.addVertexAt(2, {9.0, 9.0});
        polyline.setClosed(0);
    });
    // Three again: of the old ones the second and third, then the new one.
    const LoadedDrawing again = LoadedDrawing::fromBytes(saved());
    const auto* const polyline = host_db::peek<AcDbPolyline>(again.byHandle(0x31));
    ASSERT_EQ(polyline->numVerts(), 3U);
    AcGePoint3d last;
    polyline->getPointAt(2, last);
    EXPECT_EQ(last.x, 9.0);
}

TEST_F(SaveChanges, WidthsOfSingleVerticesEndTheCommonWidth) {
    changeObject<AcDbPolyline>(id(0x31),
                               [](AcDbPolyline& polyline) { polyline.setWidthsAt(1, 0.5, 0.25); });
    std::string expected = replaced(file, " 43\n0.0\n", "");
    const std::string none = " 40\n0.0\n 41\n0.0\n";
    expected = replaced(expected, " 91\n     5\n", none + " 91\n     5\n");
    expected = replaced(expected, " 42\n0.50\n", " 40\n0.5\n 41\n0.25\n 42\n0.50\n");
    expected = replaced(expected, " 91\n     7\n", none + " 91\n     7\n");
    EXPECT_EQ(saved(), expected);
}

TEST_F(SaveChanges, XrecordKeepsItemsThatStay) {
    changeObject<AcDbXrecord>(id(0x40), [](AcDbXrecord& record) {
        resbuf* const chain = acutBuildList(8, L" 500", 40, 0.1, 1, L"last", RTNONE);
        EXPECT_EQ(record.setFromRbChain(*chain), Acad::eOk);
        acutRelRb(chain);
    });
    expect(" 10\n1.00\n 20\n2.00\n 30\n3.00\n", " 40\n0.1\n");
}

TEST_F(SaveChanges, ErasedEntryLeavesTheDictionary) {
    dxf_test::eraseObject(id(0x40));
    const std::size_t begin = file.find("  0\nXRECORD\n");
    const std::size_t end = file.find("  0\nTHING\n");
    EXPECT_EQ(saved(),
              replaced(file.substr(0, begin) + file.substr(end), "  3\nFIRST\n350\n40\n", ""))
        << "an entry for nothing stays as it stood";
}

TEST_F(SaveChanges, LayerAndCurrentLayer) {
    changeObject<AcDbLayerTableRecord>(id(0x11), [](AcDbLayerTableRecord& layer) {
        layer.setIsOff(true);
        layer.setIsFrozen(true);
    });
    drawing_.database().setClayer(id(0x11));
    std::string expected = replaced(file, "    64\n 62\n     3\n", "65\n 62\n-3\n");
    EXPECT_EQ(saved(), replaced(expected, "$CLAYER\n  8\n0\n", "$CLAYER\n  8\nPipes\n"));
}

TEST_F(SaveChanges, RenamedRecordsAreNamedSoEverywhere) {
    changeObject<AcDbLayerTableRecord>(
        id(0x11), [](AcDbLayerTableRecord& layer) { layer.setName(L"\x7BA1"); });
    changeObject<AcDbBlockTableRecord>(id(0x1D),
                                       [](AcDbBlockTableRecord& block) { block.setName(L"Pit"); });
    std::string expected = replaced(file, "Pipes\n", "\xB9\xDC\n");
    expected = replaced(expected, "PIPES\n", "\xB9\xDC\n");
    for (const char* const standing : {"Well\n", "Well\n", "Well\n", "well\n"}) {
        expected = replaced(expected, standing, "Pit\n");
    }
    EXPECT_EQ(saved(), expected);
}

TEST_F(SaveChanges, BasePointOfADefinition) {
    changeObject<AcDbBlockTableRecord>(id(0x1D), [](AcDbBlockTableRecord& block) {
        block.setOrigin({1.0, 2.5, 0.0});
    });
    expect(" 10\n1.0\n 20\n2.0\n 30\n0.0\n  3\nWell\n",
           " 10\n1.0\n 20\n2.5\n 30\n0.0\n  3\nWell\n");
}

TEST_F(SaveChanges, NewLineStandsLastAndTakesTheNextHandle) {
    addEntity(drawing_.database().modelSpaceId(), new AcDbLine({0.1, 0.0, 0.0}, {1e20, -2.5, 0.0}));
    std::string expected =
        replaced(file, "  1\nold ^J text\n100\nAcDbText\n",
                 "  1\nold ^J text\n100\nAcDbText\n  0\nLINE\n  5\n20A\n330\n1F\n100\nAcDbEntity\n"
                 "  8\n0\n100\nAcDbLine\n 10\n0.1\n 20\n0.0\n 30\n0.0\n"
                 " 11\n1.0e+20\n 21\n-2.5\n 31\n0.0\n");
    EXPECT_EQ(saved(), replaced(expected, "$HANDSEED\n  5\n200\n", "$HANDSEED\n  5\n20B\n"));
    EXPECT_EQ(saved(), saved()) << "saving again writes the same";
}

TEST_F(SaveChanges, NumbersThatAreNoneAreRefused) {
    changeObject<AcDbLine>(id(0x30), [](AcDbLine& line) {
        line.setEndPoint({std::numeric_limits<double>::quiet_NaN(), 0.0, 0.0});
    });
    std::string bytes;
    std::string error;
    EXPECT_FALSE(host_dxf::drawingBytes(drawing_.database(), "a.dxf", bytes, error));
    EXPECT_EQ(error, "a.dxf: cannot save: group 11 would hold no finite number");
}

TEST_F(SaveChanges, CharactersThatThePageLacksAreEscaped) {
    changeObject<AcDbText>(
        id(0x36), [](AcDbText& text) { text.setTextString(L"\x6C34\x1F600\t\\U+4E00 ^"); });
    // CB AE is the character of water in code page 936.
    expect("old ^J text\n", "\xCB\xAE\\U+D83D\\U+DE00^I\\U+005CU+4E00 ^ \n");
    const LoadedDrawing again = LoadedDrawing::fromBytes(saved());
    EXPECT_STREQ(host_db::peek<AcDbText>(again.byHandle(0x36))->textStringConst(),
                 L"\x6C34\x1F600\t\\U+4E00 ^");
}

TEST(SaveForms, LineEndsStay) {
    std::string windows;
    for (const char byte : file) {
        windows += byte == '\n' ? "\r\n" : std::string(1, byte);
    }
    const LoadedDrawing drawing = LoadedDrawing::fromBytes(windows);
    changeObject<AcDbLine>(drawing.byHandle(0x30), [](AcDbLine& line) {
        line.setEndPoint({4.0, 5.0, 7.0});
        line.setColorIndex(1);
    });
    std::string expected = replaced(windows, " 31\r\n6.0\r\n", " 31\r\n7.0\r\n");
    expected = replaced(expected, "420\r\n 255\r\n", "");
    EXPECT_EQ(savedBytes(drawing.database()),
              replaced(expected, "PIPES\r\n", "PIPES\r\n 62\r\n1\r\n"));
}

TEST(SaveForms, EntitiesAloneStayEntitiesAlone) {
    const std::string bare =
        "0\nSECTION\n2\nENTITIES\n0\nLINE\n8\nA\n10\n0\n11\n1\n0\nENDSEC\n0\nEOF\n";
    const LoadedDrawing drawing = LoadedDrawing::fromBytes(bare);
    EXPECT_EQ(savedBytes(drawing.database()), bare);
    addEntity(drawing.database().modelSpaceId(),
              new AcDbCircle({1.0, 2.0, 0.0}, {0.0, 0.0, 1.0}, 0.5));
    EXPECT_EQ(
        savedBytes(drawing.database()),
        replaced(bare, "11\n1\n", "11\n1\n0\nCIRCLE\n8\n0\n10\n1.0\n20\n2.0\n30\n0.0\n40\n0.5\n"));
    setXdata(drawing.modelEntityId(0), L"APP", {L"x"});
    const LoadedDrawing again = LoadedDrawing::fromBytes(savedBytes(drawing.database()));
    EXPECT_EQ(dxf_test::xdataLines(*again.modelEntity<AcDbLine>(0)),
              (std::vector<std::wstring>{L"1001=APP", L"1000=x"}));
    EXPECT_EQ(again.outline().parts.size(), 3U)
        << "TABLES with the application in a table of its own, and ENTITIES";
}

TEST(SaveForms, BinaryGroupsOfBothWidths) {
    for (const auto codes : {BinaryFile::Codes::Short, BinaryFile::Codes::Wide}) {
        const auto drawn = [codes](double x, const char* text, bool colored) {
            BinaryFile bytes(codes);
            bytes.text(0, "SECTION").text(2, "ENTITIES").text(0, "CIRCLE").text(5, "1A");
            bytes.text(8, "0");
            if (colored) {
                bytes.int16(62, 5);
            }
            bytes.real(10, x).real(20, -2.0).real(40, 0.25).text(1001, "APP").text(1000, text);
            bytes.int32(1071, 70000).chunk(1004, "abc");
            return bytes.text(0, "ENDSEC").text(0, "EOF").bytes();
        };
        const LoadedDrawing drawing = LoadedDrawing::fromBytes(drawn(1.5, "old", false));
        EXPECT_EQ(savedBytes(drawing.database()), drawn(1.5, "old", false));
        changeObject<AcDbCircle>(drawing.byHandle(0x1A), [](AcDbCircle& circle) {
            circle.setCenter({2.75, -2.0, 0.0});
            circle.setColorIndex(5);
        });
        EXPECT_EQ(savedBytes(drawing.database()), drawn(2.75, "old", true));
    }
}

TEST(SaveForms, ExamplesStayByteForByte) {
    for (const char* const name :
         {"brambleton", "epa-user1", "l-town-tree", "l-town-whole", "town"}) {
        const std::string path = std::string(TKVLT_EXAMPLES_DIR "/") + name + ".dxf";
        const std::string bytes = dxf_test::fileBytes(path);
        ASSERT_GT(bytes.size(), 10000U) << name;
        EXPECT_TRUE(savedBytes(LoadedDrawing::fromFile(path).database()) == bytes) << name;
    }
}

} // namespace
