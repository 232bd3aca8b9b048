#include "SavedDrawing.h"

#include "database/AcDb2dPolyline.h"
#include "database/AcDbArc.h"
#include "database/AcDbAttribute.h"
#include "database/AcDbBlockReference.h"
#include "database/AcDbCircle.h"
#include "database/AcDbLine.h"
#include "database/AcDbObjectIterator.h"
#include "database/AcDbPolyline.h"
#include "database/UndoJournal.h"
#include "dxf/SaveDxf.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <memory>

using dxf_test::addEntity;
using dxf_test::askAnother;
using dxf_test::changeObject;
using dxf_test::LoadedDrawing;
using dxf_test::savedBytes;

namespace {

constexpr std::size_t kLine = 0;
constexpr std::size_t kCircle = 1;
constexpr std::size_t kReference = 4;
constexpr std::size_t kHeavy = 5;
constexpr std::size_t kPoint = 7;
constexpr std::size_t kCountOfR12 = 8;
constexpr std::size_t kCount = 12;

/// The file that make_copy_case.py writes, written once.
const std::string& copyCase(const std::string& version, const std::string& form) {
    static std::map<std::string, std::string> cases;
    std::string& bytes = cases[version + form];
    if (!bytes.empty()) {
        return bytes;
    }
    const std::string path = dxf_test::temporaryPath("copies_" + version + form + ".dxf");
    dxf_test::runScript("make_copy_case.py", {path, version, form});
    bytes = dxf_test::fileBytes(path);
    std::filesystem::remove(path);
    return bytes;
}

AcDbEntity* cloneOf(AcDbObjectId id) {
    return static_cast<AcDbEntity*>(host_db::peekObject(id)->clone());
}

/// A copy of an entity, of a block reference with copies of its attributes.
AcDbObjectId copyTo(AcDbObjectId space, AcDbObjectId id) {
    const AcDbObjectId copy = addEntity(space, cloneOf(id));
    const auto* const reference = host_db::peek<AcDbBlockReference>(id);
    if (reference == nullptr) {
        return copy;
    }
    const std::unique_ptr<AcDbObjectIterator> attributes(reference->attributeIterator());
    for (; !attributes->done(); attributes->step()) {
        auto* const attribute = static_cast<AcDbAttribute*>(cloneOf(attributes->objectId()));
        changeObject<AcDbBlockReference>(copy, [attribute](AcDbBlockReference& opened) {
            EXPECT_EQ(opened.appendAttribute(attribute), Acad::eOk);
        });
        attribute->close();
    }
    return copy;
}

/// All that another library reads of an entity, but for what is an entity's alone.
const std::string kAttributes = "(lambda e: {k: v for k, v in e.dxfattribs().items() if k not in "
                                "('handle', 'owner', 'paperspace', 'image_def_reactor_handle')})";
const std::string kSubEntities =
    "(lambda e: {'INSERT': lambda: e.attribs, 'POLYLINE': lambda: e.vertices}"
    ".get(e.dxftype(), list)())";

/// The lists of entities `copies` and `originals` are alike in all that another library reads.
std::vector<std::string> alike(const std::string& copies, const std::string& originals) {
    const auto each = [&](const std::string& what, const std::string& list) {
        return "[" + what + " for e in " + list + "]";
    };
    std::vector<std::string> questions;
    for (const std::string& what :
         {std::string("e.dxftype()"), kAttributes + "(e)", std::string("e.get_xdata('PLAIN')"),
          "[" + kAttributes + "(s) for s in " + kSubEntities + "(e)]",
          std::string("list(e) if e.dxftype() == 'LWPOLYLINE' else getattr(e, 'text', None)")}) {
        questions.push_back(each(what, copies) + " == " + each(what, originals));
    }
    return questions;
}

using VersionForm = std::tuple<std::string, std::string>;

class SaveCopies : public testing::TestWithParam<VersionForm> {
protected:
    SaveCopies() : drawing_(LoadedDrawing::fromBytes(copyCase(version(), form()))) {}

    std::string version() const { return std::get<0>(GetParam()); }
    std::string form() const { return std::get<1>(GetParam()); }
    bool isR12() const { return version() == "R12"; }
    std::size_t count() const { return isR12() ? kCountOfR12 : kCount; }
    AcDbObjectId model() const { return drawing_.database().modelSpaceId(); }
    AcDbObjectId entity(std::size_t index) const { return drawing_.modelEntityId(index); }
    std::string range(std::size_t first) const {
        return "space[" + std::to_string(first) + ":" + std::to_string(first + count()) + "]";
    }
    /// The values of make_copy_case.py stand in entity `index` as far as the version has them.
    std::vector<std::string> keptIn(std::size_t index) const {
        const std::string entity = "space[" + std::to_string(index) + "].dxf.";
        std::vector<std::string> questions = {entity + "linetype == 'DASHED'",
                                              entity + "thickness == 2"};
        if (!isR12()) {
            questions.push_back(entity + "ltscale == 0.5");
            questions.push_back(entity + "lineweight == 50");
        }
        if (!isR12() && version() != "R2000") {
            questions.push_back(entity + "true_color == 0x0A141E");
            questions.push_back(entity + "transparency == 0x0200007F");
            questions.push_back(entity + "color_name == 'BOOK$Blue'");
        }
        return questions;
    }
    void ask(std::vector<std::string> questions) const {
        askAnother(drawing_.database(), "copies_" + version() + form(), questions);
        // This host's own reader refuses a handle that stands twice.
        LoadedDrawing::fromBytes(savedBytes(drawing_.database()));
    }

    LoadedDrawing drawing_;
};

TEST_P(SaveCopies, CopiesOfAllKindsKeepWhatIsNotModelled) {
    const std::vector<AcDbObjectId> originals = drawing_.modelSpace();
    ASSERT_EQ(originals.size(), count());
    for (const AcDbObjectId id : originals) {
        copyTo(model(), id);
    }
    std::vector<std::string> questions = alike(range(count()), range(0));
    questions.push_back("len(space) == " + std::to_string(2 * count()));
    for (const std::size_t index : {kLine, kCircle, kHeavy, kPoint}) {
        for (const std::string& question : keptIn(count() + index)) {
            questions.push_back(question);
        }
    }
    const std::string reference = "space[" + std::to_string(count() + kReference) + "]";
    const std::string heavy = "space[" + std::to_string(count() + kHeavy) + "]";
    questions.insert(questions.end(),
                     {reference + ".attribs[0].dxf.text == 'W-1'",
                      reference + ".attribs[0].dxf.thickness == 2", heavy + ".dxf.flags == 128",
                      "len(" + heavy + ".vertices) == 3",
                      heavy + ".vertices[1].dxf.tangent == 45"});
    ask(questions);
}

TEST_P(SaveCopies, CopiesInPaperSpaceAndInADefinitionStandThere) {
    const AcDbObjectId paper = drawing_.database().spaceIds()[1];
    for (const AcDbObjectId id : drawing_.modelSpace()) {
        copyTo(paper, id);
        copyTo(drawing_.block(L"WELL"), id == entity(kReference) ? entity(kLine) : id);
    }
    std::vector<std::string> questions =
        alike("[p for p in doc.layout('Layout1') if p.dxftype() != 'VIEWPORT']", range(0));
    questions.push_back("len(space) == " + std::to_string(count()));
    questions.push_back("len(doc.blocks.get('WELL')) == " + std::to_string(2 + count()));
    questions.push_back("list(doc.blocks.get('WELL'))[2].dxf.thickness == 2");
    questions.push_back("all(p.dxf.paperspace == 1 for p in doc.layout('Layout1'))");
    ask(questions);
}

TEST_P(SaveCopies, WhatIsOneEntitysAloneIsNotCopied) {
    const std::vector<AcDbObjectId> originals = drawing_.modelSpace();
    for (const AcDbObjectId id : originals) {
        copyTo(model(), id);
    }
    if (isR12()) {
        ask({"len(set(e.dxf.handle for e in space)) == 16"});
        return;
    }
    ask({"len(set(e.dxf.handle for e in space)) == 24",
         "[e.has_extension_dict for e in space].count(True) == 1",
         "[e.has_reactors() for e in space].count(True) == 2", // line and light polyline
         // An image of its own gets a new object from the reader.
         "len(set(e.dxf.image_def_reactor_handle for e in space[11::12])) == 2",
         "[e.dxf.owner for e in space] == 24 * [doc.modelspace().layout_key]",
         "[v.dxf.owner for e in space[5::12] for v in e.vertices] == "
         "[e.dxf.handle for e in space[5::12] for v in e.vertices]"});
}

TEST_P(SaveCopies, ChangesToACopyShowAndLeaveTheOriginalAlone) {
    const AcDbObjectId line = copyTo(model(), entity(kLine));
    changeObject<AcDbLine>(line, [](AcDbLine& copy) {
        copy.setEndPoint({50.5, -1.25, 3.0});
        copy.setLinetype(L"ByLayer");
    });
    dxf_test::setXdata(line, L"PLAIN", {});
    dxf_test::setXdata(line, L"OTHER", {L"new"});
    const AcDbObjectId heavy = copyTo(model(), entity(kHeavy));
    changeObject<AcDb2dPolyline>(heavy, [](AcDb2dPolyline& copy) {
        copy.appendVertex({{9.0, 9.0, 0.0}});
        copy.setClosed(1);
    });
    const std::string first = "space[" + std::to_string(count()) + "]";
    const std::string second = "space[" + std::to_string(count() + 1) + "]";
    ask({"tuple(" + first + ".dxf.end) == (50.5, -1.25, 3)",
         "tuple(" + first + ".dxf.start) == (0, 0, 0)",
         first + ".dxf.linetype.upper() == 'BYLAYER'", first + ".dxf.thickness == 2",
         first + ".has_xdata('PLAIN') == False", first + ".get_xdata('OTHER') == [(1000, 'new')]",
         "[tuple(v.dxf.location) for v in " + second +
             ".vertices] == [(0, 0, 0), (4, 0, 0), (4, 4, 0), (9, 9, 0)]",
         second + ".dxf.flags == 129", second + ".vertices[0].dxf.end_width == 2",
         "tuple(space[0].dxf.end) == (100, 0, 0)", "space[0].dxf.linetype == 'DASHED'",
         "space[5].dxf.flags == 128", "len(space[5].vertices) == 3"});
}

TEST_P(SaveCopies, CopyOfACopyOutlivesBoth) {
    const AcDbObjectId copy = copyTo(model(), entity(kPoint));
    copyTo(model(), copy);
    dxf_test::eraseObject(copy);
    dxf_test::eraseObject(entity(kPoint));
    std::vector<std::string> questions = keptIn(count() - 1);
    questions.push_back("len(space) == " + std::to_string(count()));
    questions.push_back("space[-1].get_xdata('PLAIN') == [(1000, 'text'), (1071, 100000)]");
    ask(questions);
}

TEST_P(SaveCopies, UndoTakesCopiesBackAndKeepsTheOriginOfThoseThatStay) {
    const AcDbObjectId copy = copyTo(model(), entity(kCircle));
    const std::string before = savedBytes(drawing_.database());
    host_db::UndoJournal& journal = drawing_.database().undoJournal();
    changeObject<AcDbCircle>(copy, [](AcDbCircle& circle) { circle.setRadius(7.0); });
    copyTo(model(), entity(kLine));
    EXPECT_NE(savedBytes(drawing_.database()), before);
    ASSERT_TRUE(journal.undo(1));
    EXPECT_TRUE(savedBytes(drawing_.database()) == before);
    ask(keptIn(count()));
}

TEST_P(SaveCopies, ArcHandedOverForItsCircleTakesItsPlaceWithAllItCarried) {
    const AcDbObjectId id = entity(kCircle);
    AcDbCircle* circle = nullptr;
    ASSERT_EQ(acdbOpenObject(circle, id, AcDb::kForWrite), Acad::eOk);
    auto* const arc = new AcDbArc(circle->center(), circle->normal(), 4.0, 0.0, 1.5);
    arc->setLayer(circle->layerId());
    arc->setLinetype(circle->linetypeId());
    arc->takeCopyOrigin(*circle);
    ASSERT_EQ(circle->handOverTo(arc), Acad::eOk);
    arc->close();
    delete circle;
    std::vector<std::string> questions = keptIn(kCircle);
    const std::string handle = std::to_string(id.handle().value());
    questions.insert(questions.end(),
                     {"len(space) == " + std::to_string(count()), "space[1].dxftype() == 'ARC'",
                      "int(space[1].dxf.handle, 16) == " + handle, "space[1].dxf.radius == 4",
                      "space[1].dxf.start_angle == 0",
                      "abs(space[1].dxf.end_angle - 85.94366926962348) < 1e-9", // 270 / pi
                      "space[1].get_xdata('PLAIN') == [(1000, 'text'), (1071, 100000)]",
                      "[e.dxftype() for e in space].count('CIRCLE') == 0"});
    ask(questions);
}

TEST_P(SaveCopies, LineHandedOverForACircleIsWrittenFromWhatItIs) {
    const AcDbObjectId id = entity(kCircle);
    AcDbCircle* circle = nullptr;
    ASSERT_EQ(acdbOpenObject(circle, id, AcDb::kForWrite), Acad::eOk);
    auto* const line = new AcDbLine({1.0, 2.0, 3.0}, {4.0, 5.0, 6.0});
    ASSERT_EQ(circle->handOverTo(line), Acad::eOk);
    line->close();
    delete circle;
    ask({"len(space) == " + std::to_string(count()), "space[1].dxftype() == 'LINE'",
         "tuple(space[1].dxf.end) == (4, 5, 6)", "space[1].dxf.hasattr('thickness') == False"});
    dxf_test::eraseObject(id);
    ask({"len(space) == " + std::to_string(count() - 1), "space[1].dxftype() == 'ARC'"});
}

TEST_P(SaveCopies, CopyInAnotherDrawingIsWrittenFromTheModel) {
    const LoadedDrawing other = LoadedDrawing::fromBytes(copyCase(version(), form()));
    addEntity(other.database().modelSpaceId(), cloneOf(entity(kLine)));
    askAnother(other.database(), "other_" + version() + form(),
               {"tuple(space[-1].dxf.end) == (100, 0, 0)",
                "space[-1].dxf.hasattr('thickness') == False",
                "space[-1].get_xdata('PLAIN') == [(1000, 'text'), (1071, 100000)]"});
    addEntity(other.database().modelSpaceId(), cloneOf(entity(kPoint)));
    std::string bytes;
    std::string error;
    EXPECT_FALSE(host_dxf::drawingBytes(other.database(), "a.dxf", bytes, error));
    EXPECT_TRUE(error.starts_with("a.dxf: cannot save: a copy of an entity of the kind POINT "))
        << error;
}

INSTANTIATE_TEST_SUITE_P(AllVersions, SaveCopies,
                         testing::Combine(testing::Values("R12", "R2000", "R2004", "R2007", "R2010",
                                                          "R2013", "R2018"),
                                          testing::Values("text", "binary")),
                         [](const auto& instance) {
                             return std::get<0>(instance.param) + "_" + std::get<1>(instance.param);
                         });

// Where the bytes count, they are those of the record copied from, changed by hand.

std::string entitiesFile(const std::string& version, const std::string& entities) {
    return "0\nSECTION\n2\nHEADER\n9\n$ACADVER\n1\n" + version +
           "\n9\n$HANDSEED\n5\n100\n0\nENDSEC\n0\nSECTION\n2\nENTITIES\n" + entities +
           "0\nENDSEC\n0\nEOF\n";
}

TEST(SaveCopyBytes, RecordWithoutHandlesIsCopiedAsItStands) {
    const std::string line = "0\nLINE\n8\n0\n39\n2.50\n67\n0\n10\n0.0\n20\n0.0\n30\n0.0\n11\n1E1\n"
                             "21\n0.0\n31\n0.0\n";
    const std::string face = "0\n3DFACE\n8\n0\n10\n0.0\n20\n0.0\n30\n0.0\n11\n9.0\n70\n3\n";
    const std::string head = "0\nSECTION\n2\nHEADER\n9\n$ACADVER\n1\nAC1009\n9\n$HANDLING\n70\n0\n"
                             "0\nENDSEC\n0\nSECTION\n2\nENTITIES\n";
    const std::string tail = "0\nENDSEC\n0\nEOF\n";
    const std::string comment = "999\nof the end\n";
    const LoadedDrawing drawing = LoadedDrawing::fromBytes(head + line + face + comment + tail);
    for (std::size_t i = 0; i < 2; ++i) {
        addEntity(drawing.database().modelSpaceId(), cloneOf(drawing.modelEntityId(i)));
    }
    // The space is said by a group 67 that is 1 alone.
    const std::string copied = dxf_test::replaced(line, "67\n0\n", "");
    EXPECT_EQ(savedBytes(drawing.database()), head + line + face + comment + copied + face + tail);
}

TEST(SaveCopyBytes, HeadIsTheCopysOwnAndTheRestStays) {
    const std::string circle =
        "0\nCIRCLE\n5\n20\n102\n{ACAD_REACTORS\n330\n77\n102\n}\n102\n{MINE\n40\n1.5\n102\n}\n"
        "102\n{ACAD_XDICTIONARY\n360\n78\n102\n}\n330\n1F\n100\nAcDbEntity\n8\n0\n410\nModel\n"
        "370\n50\n100\nAcDbCircle\n39\n2.0\n10\n1.00\n20\n2.0\n30\n0.0\n40\n5.0\n";
    const LoadedDrawing drawing = LoadedDrawing::fromBytes(entitiesFile("AC1015", circle));
    const AcDbObjectId copy =
        addEntity(drawing.database().modelSpaceId(), cloneOf(drawing.modelEntityId(0)));
    changeObject<AcDbCircle>(copy, [](AcDbCircle& opened) { opened.setRadius(6.5); });
    const std::string saved = savedBytes(drawing.database());
    const std::string handle = [&] {
        ACHAR text[17];
        copy.handle().getIntoAsciiBuffer(text);
        return std::string(text, text + wcslen(text));
    }();
    // The file has no record of the model space that an owner could name.
    const std::string copied = "0\nCIRCLE\n5\n" + handle +
                               "\n102\n{MINE\n40\n1.5\n102\n}\n100\nAcDbEntity\n8\n0\n370\n50\n"
                               "100\nAcDbCircle\n39\n2.0\n10\n1.00\n20\n2.0\n30\n0.0\n40\n6.5\n";
    EXPECT_NE(saved.find(circle + copied + "0\nENDSEC\n"), std::string::npos) << saved;
}

} // namespace
