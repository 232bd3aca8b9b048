#include "application/AcApDocManager.h"
#include "application/HostDocuments.h"
#include "host/database/DatabaseFixture.h"

#include <filesystem>
#include <fstream>

namespace {

class DocumentTest : public ::testing::Test {
protected:
    ~DocumentTest() override {
        while (acDocManager()->curDocument() != nullptr) {
            host::closeDocument(acDocManager()->curDocument());
        }
    }
};

TEST_F(DocumentTest, ANewDocumentBecomesCurrent) {
    EXPECT_EQ(acDocManager()->curDocument(), nullptr);
    AcApDocument* first = host::newDocument();
    ASSERT_NE(first, nullptr);
    EXPECT_EQ(acDocManager()->curDocument(), first);
    EXPECT_EQ(acDocManager()->mdiActiveDocument(), first);
    EXPECT_EQ(acdbHostApplicationServices()->workingDatabase(), first->database());
    EXPECT_STREQ(first->docTitle(), L"Drawing");
    AcApDocument* second = host::newDocument();
    EXPECT_EQ(acDocManager()->curDocument(), second);
    EXPECT_EQ(acDocManager()->document(first->database()), first);
    EXPECT_EQ(acDocManager()->documentCount(), 2);
    EXPECT_EQ(acDocManager()->setCurDocument(first), Acad::eOk);
    EXPECT_EQ(acdbHostApplicationServices()->workingDatabase(), first->database());
    host::closeDocument(second);
    EXPECT_EQ(acDocManager()->curDocument(), first);
    EXPECT_EQ(acDocManager()->setCurDocument(second), Acad::eInvalidInput);
}

TEST_F(DocumentTest, ClosingTheCurrentOneGoesBackToTheLatest) {
    AcApDocument* first = host::newDocument();
    AcApDocument* second = host::newDocument();
    const AcDbObjectId model = second->database()->modelSpaceId();
    host::closeDocument(nullptr);
    host::closeDocument(second);
    EXPECT_EQ(acDocManager()->curDocument(), first);
    EXPECT_EQ(acdbHostApplicationServices()->workingDatabase(), first->database());
    EXPECT_TRUE(model.isErased());
    host::closeDocument(first);
    EXPECT_EQ(acDocManager()->curDocument(), nullptr);
    EXPECT_EQ(acdbHostApplicationServices()->workingDatabase(), nullptr);
}

TEST_F(DocumentTest, ADrawingIsOpenedFromAFile) {
    const std::filesystem::path path =
        std::filesystem::temp_directory_path() / "tkvlt_document_test_管.dxf";
    std::ofstream(path) << "  0\nSECTION\n  2\nENTITIES\n  0\nLINE\n  5\nAB\n  8\n0\n"
                           " 10\n1.0\n 20\n2.0\n 30\n0.0\n 11\n4.0\n 21\n6.0\n 31\n0.0\n"
                           "  0\nENDSEC\n  0\nEOF\n";
    std::string error;
    AcApDocument* document = host::openDocument(path.string(), error);
    std::filesystem::remove(path);
    ASSERT_NE(document, nullptr) << error;
    EXPECT_STREQ(document->docTitle(), L"tkvlt_document_test_管.dxf");
    AcDbObjectId id;
    ASSERT_EQ(document->database()->getAcDbObjectId(id, false, AcDbHandle(0xAB)), Acad::eOk);
    const auto* line = host_db::peek<AcDbLine>(id);
    ASSERT_NE(line, nullptr);
    expectPoint(line->endPoint(), 4.0, 6.0, 0.0);
}

TEST_F(DocumentTest, AMissingFileLeavesEverythingAsItWas) {
    AcApDocument* first = host::newDocument();
    std::string error;
    EXPECT_EQ(host::openDocument("/no/such/drawing.dxf", error), nullptr);
    EXPECT_FALSE(error.empty());
    EXPECT_EQ(error.find('\n'), std::string::npos);
    EXPECT_EQ(acDocManager()->curDocument(), first);
    EXPECT_EQ(acDocManager()->documentCount(), 1);
}

TEST_F(DocumentTest, ASavedDocumentBearsTheNameOfItsFile) {
    const std::string path = testing::TempDir() + "tkvlt_document_test_saved.dxf";
    AcApDocument* document = host::newDocument();
    std::string error;
    ASSERT_TRUE(host::saveDocument(document, path, error)) << error;
    EXPECT_STREQ(document->docTitle(), L"tkvlt_document_test_saved.dxf");
    AcApDocument* again = host::openDocument(path, error);
    std::filesystem::remove(path);
    ASSERT_NE(again, nullptr) << error;
    EXPECT_EQ(again->database()->spaceIds().size(), 2U);
}

TEST_F(DocumentTest, WhatIsNotOpenCannotBeSaved) {
    std::string error;
    EXPECT_FALSE(host::saveDocument(nullptr, "x.dxf", error));
    EXPECT_EQ(error, "x.dxf: cannot save: the document is not open");
}

TEST_F(DocumentTest, LocksAreGivenBackAsOftenAsTaken) {
    AcApDocument* document = host::newDocument();
    EXPECT_EQ(document->lockMode(), AcAp::kNotLocked);
    EXPECT_EQ(acDocManager()->lockDocument(document, AcAp::kWrite), Acad::eOk);
    EXPECT_EQ(acDocManager()->lockDocument(document, AcAp::kRead), Acad::eOk);
    EXPECT_EQ(document->lockMode(), AcAp::kWrite);
    EXPECT_EQ(acDocManager()->unlockDocument(document), Acad::eOk);
    EXPECT_EQ(acDocManager()->unlockDocument(document), Acad::eOk);
    EXPECT_EQ(acDocManager()->unlockDocument(document), Acad::eLockViolation);
    EXPECT_EQ(document->lockMode(), AcAp::kNotLocked);
    EXPECT_EQ(acDocManager()->lockDocument(nullptr), Acad::eInvalidInput);
}

} // namespace
