#include "application/AcApDocManager.h"
#include "application/HostDocuments.h"
#include "application/HostRecorder.h"
#include "database/AcDbLine.h"
#include "database/OpenObject.h"
#include "database/ResultBuffer.h"
#include "editor/SelectionSets.h"

#include <gtest/gtest.h>

namespace {

class DocumentLockTest : public ::testing::Test {
protected:
    DocumentLockTest() : document_(host::newDocument()), before_(host::liveCounts()) {}
    ~DocumentLockTest() override {
        acDocManager()->lockByAnother(document_, AcAp::kNotLocked);
        EXPECT_EQ(host::liveCounts(), before_);
        host::closeDocument(document_);
    }

    AcDbObjectId model() { return document_->database()->modelSpaceId(); }

    /// How an open ends; what was opened is closed.
    static Acad::ErrorStatus opening(AcDbObjectId id, AcDb::OpenMode mode) {
        AcDbObject* object = nullptr;
        const Acad::ErrorStatus status = acdbOpenAcDbObject(object, id, mode);
        if (status == Acad::eOk) {
            object->close();
        }
        return status;
    }

    AcApDocument* document_;
    host::LiveCounts before_;
};

TEST_F(DocumentLockTest, EveryModeIsALockButTwo) {
    for (const AcAp::DocLockMode mode :
         {AcAp::kAutoWrite, AcAp::kWrite, AcAp::kProtectedAutoWrite, AcAp::kRead, AcAp::kXWrite}) {
        EXPECT_EQ(acDocManager()->lockDocument(document_, mode), Acad::eOk);
        EXPECT_EQ(document_->lockMode(), mode);
        EXPECT_EQ(acDocManager()->lockCount(), 1U);
        EXPECT_EQ(opening(model(), AcDb::kForWrite), Acad::eOk);
        EXPECT_EQ(acDocManager()->unlockDocument(document_), Acad::eOk);
    }
    EXPECT_EQ(acDocManager()->lockDocument(document_, AcAp::kNone), Acad::eInvalidInput);
    EXPECT_EQ(acDocManager()->lockDocument(document_, AcAp::kNotLocked), Acad::eInvalidInput);
    EXPECT_EQ(acDocManager()->unlockDocument(document_), Acad::eLockViolation);
}

TEST_F(DocumentLockTest, UnderAnothersLockNothingOpensForWrite) {
    for (const AcAp::DocLockMode mode : {AcAp::kRead, AcAp::kWrite, AcAp::kXWrite}) {
        ASSERT_EQ(acDocManager()->lockByAnother(document_, mode), Acad::eOk);
        EXPECT_EQ(document_->lockModeOfOthers(), mode);
        EXPECT_EQ(opening(model(), AcDb::kForWrite), Acad::eLockViolation);
        EXPECT_EQ(opening(model(), AcDb::kForRead), Acad::eOk);
        AcDbObject* reader = nullptr;
        ASSERT_EQ(acdbOpenAcDbObject(reader, model(), AcDb::kForRead), Acad::eOk);
        EXPECT_EQ(reader->upgradeOpen(), Acad::eLockViolation);
        reader->close();
        ASSERT_EQ(acDocManager()->lockByAnother(document_, AcAp::kNotLocked), Acad::eOk);
        EXPECT_EQ(opening(model(), AcDb::kForWrite), Acad::eOk);
    }
}

TEST_F(DocumentLockTest, OnlyReadersGoTogether) {
    ASSERT_EQ(acDocManager()->lockByAnother(document_, AcAp::kRead), Acad::eOk);
    EXPECT_EQ(acDocManager()->lockDocument(document_, AcAp::kWrite), Acad::eLockViolation);
    EXPECT_EQ(acDocManager()->lockDocument(document_, AcAp::kRead), Acad::eOk);
    EXPECT_EQ(acDocManager()->lockByAnother(document_, AcAp::kXWrite), Acad::eLockViolation);
    EXPECT_EQ(acDocManager()->unlockDocument(document_), Acad::eOk);
    EXPECT_EQ(acDocManager()->lockByAnother(document_, AcAp::kXWrite), Acad::eOk);
    EXPECT_EQ(acDocManager()->lockDocument(document_, AcAp::kRead), Acad::eLockViolation);
}

TEST_F(DocumentLockTest, ALockOfOneDocumentLeavesTheOthersFree) {
    AcApDocument* other = host::newDocument();
    ASSERT_EQ(acDocManager()->lockByAnother(document_, AcAp::kWrite), Acad::eOk);
    EXPECT_EQ(opening(other->database()->modelSpaceId(), AcDb::kForWrite), Acad::eOk);
    EXPECT_EQ(acDocManager()->lockDocument(other, AcAp::kWrite), Acad::eOk);
    EXPECT_EQ(acDocManager()->unlockDocument(other), Acad::eOk);
    host::closeDocument(other);
    EXPECT_EQ(acDocManager()->lockByAnother(other, AcAp::kRead), Acad::eInvalidInput);
}

TEST_F(DocumentLockTest, CountsTellWhatWasNotGivenBack) {
    acDocManager()->lockDocument(document_);
    AcDbObject* reader = nullptr;
    ASSERT_EQ(acdbOpenAcDbObject(reader, model(), AcDb::kForRead), Acad::eOk);
    ads_name set;
    ASSERT_EQ(acedSSAdd(nullptr, nullptr, set), RTNORM);
    resbuf* chain = acutBuildList(RTSTR, L"a", RTSTR, L"b", 0);
    const host::LiveCounts counts = host::liveCounts();
    EXPECT_EQ(counts.openObjects, before_.openObjects + 1);
    EXPECT_EQ(counts.selectionSets, before_.selectionSets + 1);
    EXPECT_EQ(counts.resultBuffers, before_.resultBuffers + 2);
    EXPECT_EQ(counts.locks, before_.locks + 1);
    acutRelRb(chain);
    acedSSFree(set);
    reader->close();
    acDocManager()->unlockDocument(document_);
}

} // namespace
