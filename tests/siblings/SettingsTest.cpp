#include "Settings.h"
#include "application/AcApDocManager.h"
#include "application/AcApDocument.h"
#include "application/HostDocuments.h"
#include "database/AcDbDatabase.h"
#include "database/AcDbDictionary.h"
#include "database/AcDbXrecord.h"
#include "database/ResultBuffer.h"
#include "TemporaryFolder.h"

#include <chrono>
#include <cstdlib>
#include <gtest/gtest.h>
#include <thread>

using sibling_tests::TemporaryFolder;

namespace {

constexpr const char* fileName = "SysCon/DrawingSetting.Kdp";

/// A drawing and an empty system path of its own; nothing is set.
class SettingsTest : public ::testing::Test {
protected:
    SettingsTest() : document(host::newDocument()) { siblings::setSystemPath(folder.text()); }
    ~SettingsTest() override {
        siblings::clearDrawingSettings();
        siblings::setSystemPath("");
        host::closeDocument(document);
    }

    /// Opens a dictionary's entry for write, made and entered when it is not there.
    template<typename T>
    static T* entry(AcDbDictionary* dictionary, const wchar_t* name) {
        AcDbObject* found = nullptr;
        if (dictionary->getAt(name, found, AcDb::kForWrite) == Acad::eOk) {
            return T::cast(found);
        }
        T* made = new T;
        AcDbObjectId id;
        EXPECT_EQ(dictionary->setAt(name, made, id), Acad::eOk);
        return made;
    }

    /// Puts a chain into a record of the drawing's settings dictionary; the chain is released.
    void record(const wchar_t* name, resbuf* chain) const {
        AcDbDictionary* named = nullptr;
        ASSERT_EQ(document->database()->getNamedObjectsDictionary(named, AcDb::kForWrite),
                  Acad::eOk);
        auto* records = entry<AcDbDictionary>(named, L"TKVLT_DRAWING_SETTINGS");
        auto* xrecord = entry<AcDbXrecord>(records, name);
        EXPECT_EQ(xrecord->setFromRbChain(*chain), Acad::eOk);
        xrecord->close();
        records->close();
        named->close();
        acutRelRb(chain);
    }
    void record(const wchar_t* name, const wchar_t* text) const {
        record(name, acutBuildList(8, text, RTNONE));
    }
    void file(const std::string& bytes) const { folder.write(fileName, bytes); }

    TemporaryFolder folder;
    AcApDocument* document;
};

TEST_F(SettingsTest, BuiltInValues) {
    EXPECT_EQ(GetDwgScale(), 1.0);
    EXPECT_EQ(GetVZDrawScale(), 1000.0);
    EXPECT_EQ(GetPipeBreakDist(), 0.1);
    EXPECT_EQ(GetPipeCalLongType(), 0);
}

TEST_F(SettingsTest, FileGivesEachValue) {
    file("DwgScale = 2.5\nDrawScale = 500\nPipeBreakDist = 0.25\nPipeCalLongType = 1\n");
    EXPECT_EQ(GetDwgScale(), 2.5);
    EXPECT_EQ(GetVZDrawScale(), 500.0);
    EXPECT_EQ(GetPipeBreakDist(), 0.25);
    EXPECT_EQ(GetPipeCalLongType(), 1);
}

TEST_F(SettingsTest, DrawingsRecordsGiveEachValue) {
    record(L"DwgScale", L"3");
    record(L"DrawScale", L"250.5");
    record(L"PipeBreakDist", L"1e-2");
    record(L"PipeCalLongType", L"2");
    EXPECT_EQ(GetDwgScale(), 3.0);
    EXPECT_EQ(GetVZDrawScale(), 250.5);
    EXPECT_EQ(GetPipeBreakDist(), 0.01);
    EXPECT_EQ(GetPipeCalLongType(), 2);
}

TEST_F(SettingsTest, OverrideGivesEachValue) {
    siblings::setDrawingSettings({7.0, 8.0, 9.0, 10});
    EXPECT_EQ(GetDwgScale(), 7.0);
    EXPECT_EQ(GetVZDrawScale(), 8.0);
    EXPECT_EQ(GetPipeBreakDist(), 9.0);
    EXPECT_EQ(GetPipeCalLongType(), 10);
}

TEST_F(SettingsTest, OrderHoldsForEachValueByItself) {
    file("DwgScale = 11\nDrawScale = 12\nPipeBreakDist = 13\n");
    record(L"DwgScale", L"21");
    record(L"DrawScale", L"22");
    siblings::DrawingSettings given;
    given.dwgScale = 31.0;
    siblings::setDrawingSettings(given);
    EXPECT_EQ(GetDwgScale(), 31.0);
    EXPECT_EQ(GetVZDrawScale(), 22.0);
    EXPECT_EQ(GetPipeBreakDist(), 13.0);
    EXPECT_EQ(GetPipeCalLongType(), 0);
}

TEST_F(SettingsTest, OverrideIsReplacedWholeAndTakenAway) {
    siblings::DrawingSettings given;
    given.dwgScale = 2.0;
    siblings::setDrawingSettings(given);
    EXPECT_EQ(GetDwgScale(), 2.0);
    siblings::DrawingSettings other;
    other.pipeCalLongType = 5;
    siblings::setDrawingSettings(other);
    EXPECT_EQ(GetDwgScale(), 1.0);
    EXPECT_EQ(GetPipeCalLongType(), 5);
    siblings::clearDrawingSettings();
    EXPECT_EQ(GetPipeCalLongType(), 0);
    EXPECT_EQ(GetSystemPath(), CString(host_text::fromUtf8(folder.text())));
}

TEST_F(SettingsTest, ZeroIsAValueLikeAnyOther) {
    file("DrawScale = 500\nPipeCalLongType = 1\n");
    record(L"PipeCalLongType", L"0");
    siblings::DrawingSettings given;
    given.drawScale = 0.0;
    siblings::setDrawingSettings(given);
    EXPECT_EQ(GetVZDrawScale(), 0.0);
    EXPECT_EQ(GetPipeCalLongType(), 0);
}

TEST_F(SettingsTest, TextIsReadAsADecimalPrefix) {
    record(L"DrawScale", L"  500 mm");
    record(L"DwgScale", L"none");
    record(L"PipeCalLongType", L"1.9");
    EXPECT_EQ(GetVZDrawScale(), 500.0);
    EXPECT_EQ(GetDwgScale(), 0.0);
    EXPECT_EQ(GetPipeCalLongType(), 1);
}

TEST_F(SettingsTest, ChangedRecordIsSeenAtTheNextCall) {
    file("DrawScale = 1\n");
    EXPECT_EQ(GetVZDrawScale(), 1.0);
    record(L"DrawScale", L"2");
    EXPECT_EQ(GetVZDrawScale(), 2.0);
    record(L"DrawScale", L"3");
    EXPECT_EQ(GetVZDrawScale(), 3.0);
    for (int i = 4; i < 300; ++i) {
        record(L"DrawScale", std::to_wstring(i).c_str());
        ASSERT_EQ(GetVZDrawScale(), i);
    }
}

TEST_F(SettingsTest, ErasedRecordCountsNoMore) {
    record(L"DrawScale", L"2");
    ASSERT_EQ(GetVZDrawScale(), 2.0);
    AcDbDictionary* named = nullptr;
    ASSERT_EQ(document->database()->getNamedObjectsDictionary(named, AcDb::kForWrite), Acad::eOk);
    auto* records = entry<AcDbDictionary>(named, L"TKVLT_DRAWING_SETTINGS");
    auto* xrecord = entry<AcDbXrecord>(records, L"DrawScale");
    ASSERT_EQ(xrecord->erase(), Acad::eOk);
    xrecord->close();
    records->close();
    named->close();
    EXPECT_EQ(GetVZDrawScale(), 1000.0);
}

TEST_F(SettingsTest, RecordThatIsBeingWrittenIsStillRead) {
    record(L"DrawScale", L"2");
    AcDbDictionary* named = nullptr;
    ASSERT_EQ(document->database()->getNamedObjectsDictionary(named, AcDb::kForWrite), Acad::eOk);
    auto* records = entry<AcDbDictionary>(named, L"TKVLT_DRAWING_SETTINGS");
    EXPECT_EQ(GetVZDrawScale(), 2.0);
    records->close();
    named->close();
}

TEST_F(SettingsTest, OnlyATextItemInFrontCounts) {
    file("DrawScale = 500\n");
    record(L"DrawScale", acutBuildList(1, L"2", 8, L"3", RTNONE));
    EXPECT_EQ(GetVZDrawScale(), 500.0);
    record(L"DrawScale", acutBuildList(8, L"4", 8, L"5", RTNONE));
    EXPECT_EQ(GetVZDrawScale(), 4.0);
}

TEST_F(SettingsTest, EntryOfAnotherClassDoesNotCount) {
    AcDbDictionary* named = nullptr;
    ASSERT_EQ(document->database()->getNamedObjectsDictionary(named, AcDb::kForWrite), Acad::eOk);
    auto* records = entry<AcDbDictionary>(named, L"TKVLT_DRAWING_SETTINGS");
    entry<AcDbDictionary>(records, L"DrawScale")->close();
    records->close();
    named->close();
    EXPECT_EQ(GetVZDrawScale(), 1000.0);
}

TEST_F(SettingsTest, EachDrawingHasItsOwnRecords) {
    record(L"DrawScale", L"2");
    EXPECT_EQ(GetVZDrawScale(), 2.0);
    AcApDocument* other = host::newDocument();
    EXPECT_EQ(GetVZDrawScale(), 1000.0);
    ASSERT_EQ(acDocManager()->setCurDocument(document), Acad::eOk);
    EXPECT_EQ(GetVZDrawScale(), 2.0);
    ASSERT_EQ(acDocManager()->setCurDocument(other), Acad::eOk);
    host::closeDocument(other);
    EXPECT_EQ(GetVZDrawScale(), 2.0);
}

TEST_F(SettingsTest, WithoutADrawingTheFileStillCounts) {
    file("DrawScale = 500\n");
    record(L"DrawScale", L"2");
    host::closeDocument(document);
    EXPECT_EQ(GetVZDrawScale(), 500.0);
    document = host::newDocument();
}

TEST_F(SettingsTest, ChangedFileIsSeen) {
    EXPECT_EQ(GetVZDrawScale(), 1000.0);
    file("DrawScale = 1\n");
    EXPECT_EQ(GetVZDrawScale(), 1.0);
    // Same length, within the same tick of the file's times.
    file("DrawScale = 2\n");
    EXPECT_EQ(GetVZDrawScale(), 2.0);
    file("DrawScale = 3\n");
    EXPECT_EQ(GetVZDrawScale(), 3.0);
    std::filesystem::remove(folder.path() / fileName);
    EXPECT_EQ(GetVZDrawScale(), 1000.0);
}

TEST_F(SettingsTest, FileRewrittenFasterThanItsTimesTellIsSeen) {
    for (int i = 0; i < 30; ++i) {
        const int digit = 1 + i % 9;
        file("DrawScale = " + std::to_string(digit) + "\n");
        ASSERT_EQ(GetVZDrawScale(), digit);
    }
}

TEST_F(SettingsTest, ChangedFileIsSeenInTheMidstOfManyCalls) {
    file("DrawScale = 1\n");
    for (int i = 0; i < 10000; ++i) {
        ASSERT_EQ(GetVZDrawScale(), 1.0);
    }
    file("DrawScale = 2\n");
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(5);
    while (GetVZDrawScale() != 2.0 && std::chrono::steady_clock::now() < end) {
        std::this_thread::yield();
    }
    EXPECT_EQ(GetVZDrawScale(), 2.0);
}

TEST_F(SettingsTest, SettledFileIsSeenWhenItChanges) {
    file("DrawScale = 1\n");
    EXPECT_EQ(GetVZDrawScale(), 1.0);
    std::this_thread::sleep_for(std::chrono::milliseconds(120));
    EXPECT_EQ(GetVZDrawScale(), 1.0);
    EXPECT_EQ(GetVZDrawScale(), 1.0);
    file("DrawScale = 2\n");
    EXPECT_EQ(GetVZDrawScale(), 2.0);
}

TEST_F(SettingsTest, MalformedFileCountsAsNone) {
    file("DrawScale = 500\nno entry\n");
    EXPECT_EQ(GetVZDrawScale(), 1000.0);
}

TEST_F(SettingsTest, SubKeysOfTheFileDoNotCount) {
    file("a\\DrawScale = 500\ndrawscale = 200\n");
    EXPECT_EQ(GetVZDrawScale(), 1000.0);
}

TEST_F(SettingsTest, AnotherSystemPathHasAnotherFile) {
    file("DrawScale = 1\n");
    EXPECT_EQ(GetVZDrawScale(), 1.0);
    TemporaryFolder second;
    second.write(fileName, "DrawScale = 2\n");
    siblings::setSystemPath(second.text() + "\\");
    EXPECT_EQ(GetVZDrawScale(), 2.0);
    siblings::setSystemPath(second.text() + "\\missing");
    EXPECT_EQ(GetVZDrawScale(), 1000.0);
}

} // namespace
