#include "host/database/DatabaseFixture.h"

#include "database/AcDbXrecord.h"
#include "database/UndoJournal.h"

#include <string>

namespace {

/// SET holds the dictionary INNER, which holds the record R, and the record S.
class DictionaryEraseTest : public DatabaseFixture {
protected:
    static AcDbObjectId enter(AcDbObjectId dictionary, const ACHAR* name, AcDbObject* object) {
        AcDbDictionary* opened = nullptr;
        AcDbObjectId id;
        EXPECT_EQ(acdbOpenObject(opened, dictionary, AcDb::kForWrite), Acad::eOk);
        EXPECT_EQ(opened->setAt(name, object, id), Acad::eOk);
        object->close();
        opened->close();
        return id;
    }
    static Acad::ErrorStatus erase(AcDbObjectId id, bool erasing = true) {
        AcDbObject* object = nullptr;
        EXPECT_EQ(acdbOpenAcDbObject(object, id, AcDb::kForWrite, true), Acad::eOk);
        const Acad::ErrorStatus status = object->erase(erasing);
        object->close();
        return status;
    }
    AcDbObjectId root() { return database().namedObjectsDictionaryId(); }

    AcDbObjectId set_ = enter(root(), L"SET", new AcDbDictionary);
    AcDbObjectId inner_ = enter(set_, L"INNER", new AcDbDictionary);
    AcDbObjectId record_ = enter(inner_, L"R", new AcDbXrecord);
    AcDbObjectId second_ = enter(set_, L"S", new AcDbXrecord);
};

TEST_F(DictionaryEraseTest, WhatItOwnsGoesAlong) {
    EXPECT_EQ(erase(set_), Acad::eOk);
    EXPECT_TRUE(set_.isErased());
    EXPECT_TRUE(inner_.isErased());
    EXPECT_TRUE(record_.isErased());
    EXPECT_TRUE(second_.isErased());
    EXPECT_FALSE(host_db::peek<AcDbDictionary>(root())->has(L"SET"));
}

TEST_F(DictionaryEraseTest, WhatWentAlongComesBackAndNothingElse) {
    EXPECT_EQ(erase(second_), Acad::eOk);
    EXPECT_EQ(erase(set_), Acad::eOk);
    EXPECT_EQ(erase(set_, false), Acad::eOk);
    EXPECT_FALSE(set_.isErased());
    EXPECT_FALSE(inner_.isErased());
    EXPECT_FALSE(record_.isErased());
    EXPECT_TRUE(second_.isErased()) << "it was erased before";
    EXPECT_TRUE(host_db::peek<AcDbDictionary>(root())->has(L"SET"));
}

TEST_F(DictionaryEraseTest, WhatAnotherOwnsStays) {
    const AcDbObjectId other = enter(root(), L"OTHER", new AcDbDictionary);
    AcDbXrecord* record = nullptr;
    ASSERT_EQ(acdbOpenObject(record, record_, AcDb::kForWrite), Acad::eOk);
    AcDbDictionary* opened = nullptr;
    ASSERT_EQ(acdbOpenObject(opened, other, AcDb::kForWrite), Acad::eOk);
    AcDbObjectId id;
    EXPECT_EQ(opened->setAt(L"R", record, id), Acad::eOk);
    opened->close();
    record->close();
    EXPECT_EQ(erase(other), Acad::eOk);
    EXPECT_FALSE(record_.isErased());
    EXPECT_EQ(host_db::peekObject(record_)->ownerId(), inner_);
}

TEST_F(DictionaryEraseTest, WhatIsOpenStays) {
    AcDbXrecord* reader = nullptr;
    ASSERT_EQ(acdbOpenObject(reader, record_, AcDb::kForRead), Acad::eOk);
    EXPECT_EQ(erase(set_), Acad::eOk);
    reader->close();
    EXPECT_FALSE(record_.isErased());
    EXPECT_TRUE(inner_.isErased());
    EXPECT_TRUE(second_.isErased());
}

TEST_F(DictionaryEraseTest, TheRootCannotBeErased) {
    EXPECT_EQ(erase(root()), Acad::eCannotBeErasedByCaller);
    EXPECT_FALSE(root().isErased());
    EXPECT_FALSE(set_.isErased());
}

TEST_F(DictionaryEraseTest, ItNeedsToBeOpenForWrite) {
    AcDbDictionary* reader = nullptr;
    ASSERT_EQ(acdbOpenObject(reader, set_, AcDb::kForRead), Acad::eOk);
    EXPECT_EQ(reader->erase(), Acad::eNotOpenForWrite);
    reader->close();
    EXPECT_FALSE(second_.isErased());
    AcDbDictionary loose;
    EXPECT_EQ(loose.erase(), Acad::eNotInDatabase);
}

TEST_F(DictionaryEraseTest, AnEntryThatTakesItsPlaceErasesIt) {
    const AcDbObjectId next = enter(root(), L"set", new AcDbXrecord);
    EXPECT_TRUE(set_.isErased());
    EXPECT_TRUE(record_.isErased());
    AcDbObjectId found;
    EXPECT_EQ(host_db::peek<AcDbDictionary>(root())->getAt(L"SET", found), Acad::eOk);
    EXPECT_EQ(found, next);
}

TEST_F(DictionaryEraseTest, WhatComesBackToATakenNameGetsAnother) {
    EXPECT_EQ(erase(set_), Acad::eOk);
    const AcDbObjectId next = enter(root(), L"SET", new AcDbXrecord);
    EXPECT_EQ(erase(next), Acad::eOk);
    const AcDbObjectId third = enter(root(), L"SET", new AcDbXrecord);
    EXPECT_EQ(erase(set_, false), Acad::eOk);
    EXPECT_EQ(erase(next, false), Acad::eOk);
    const auto* dictionary = host_db::peek<AcDbDictionary>(root());
    AcDbObjectId found;
    EXPECT_EQ(dictionary->getAt(L"SET", found), Acad::eOk);
    EXPECT_EQ(found, third);
    CString first;
    CString second;
    ASSERT_EQ(dictionary->nameAt(set_, first), Acad::eOk);
    ASSERT_EQ(dictionary->nameAt(next, second), Acad::eOk);
    EXPECT_NE(first, second);
    EXPECT_EQ(dictionary->getAt(first, found), Acad::eOk);
    EXPECT_EQ(found, set_);
    EXPECT_FALSE(record_.isErased());
}

TEST_F(DictionaryEraseTest, NameThatNobodyGaveIsOneThatNobodyHas) {
    // Two entries besides SET in a root of its own: the third name in line is *A3.
    const AcDbObjectId own = enter(root(), L"OWN", new AcDbDictionary);
    const AcDbObjectId kept = enter(own, L"*a3", new AcDbXrecord);
    enter(own, L"SECOND", new AcDbXrecord);
    const AcDbObjectId old = enter(own, L"R", new AcDbXrecord);
    EXPECT_EQ(erase(old), Acad::eOk);
    enter(own, L"R", new AcDbXrecord);
    EXPECT_EQ(erase(old, false), Acad::eOk);
    const auto* dictionary = host_db::peek<AcDbDictionary>(own);
    EXPECT_EQ(dictionary->numEntries(), 4U);
    AcDbObjectId found;
    EXPECT_EQ(dictionary->getAt(L"*A3", found), Acad::eOk);
    EXPECT_EQ(found, kept);
    EXPECT_TRUE(dictionary->has(old));
}

TEST_F(DictionaryEraseTest, UndoBringsEverythingBack) {
    host_db::UndoJournal& journal = database().undoJournal();
    EXPECT_EQ(erase(set_), Acad::eOk);
    ASSERT_TRUE(journal.undo(1));
    EXPECT_FALSE(set_.isErased());
    EXPECT_FALSE(inner_.isErased());
    EXPECT_FALSE(record_.isErased());
    EXPECT_FALSE(second_.isErased());
    EXPECT_EQ(erase(set_), Acad::eOk) << "and it can be erased again";
    EXPECT_TRUE(record_.isErased());
}

TEST_F(DictionaryEraseTest, AnyDepthIsErased) {
    AcDbObjectId deepest = inner_;
    for (int depth = 0; depth < 100000; ++depth) {
        deepest = enter(deepest, L"NEXT", new AcDbDictionary);
    }
    EXPECT_EQ(erase(set_), Acad::eOk);
    EXPECT_TRUE(deepest.isErased());
    EXPECT_EQ(erase(set_, false), Acad::eOk);
    EXPECT_FALSE(deepest.isErased());
}

/// What a record that is in no drawing says to a chain, which is released.
Acad::ErrorStatus stored(resbuf* chain) {
    AcDbXrecord record;
    const Acad::ErrorStatus status = record.setFromRbChain(*chain);
    EXPECT_EQ(record.items().empty(), status != Acad::eOk);
    acutRelRb(chain);
    return status;
}

TEST(XrecordItemsTest, WhatAFilesReaderTakesForItselfIsRefused) {
    EXPECT_EQ(stored(acutBuildList(RTDXF0, L"EOF", 0)), Acad::eInvalidResBuf);
    for (const int code : {5, 100, 101, 105, 999, 1000, 1001, 1005}) {
        EXPECT_EQ(stored(acutBuildList(8, L"a", code, L"1F", 0)), Acad::eInvalidResBuf) << code;
    }
    EXPECT_EQ(stored(acutBuildList(1070, 1, 0)), Acad::eInvalidResBuf);
    EXPECT_EQ(stored(acutBuildList(1071, 1, 0)), Acad::eInvalidResBuf);
    EXPECT_EQ(stored(acutBuildList(1040, 0.5, 0)), Acad::eInvalidResBuf);
    EXPECT_EQ(stored(acutBuildList(RTSTR, L"a", 0)), Acad::eInvalidResBuf);
}

TEST(XrecordItemsTest, OtherGroupsAreTaken) {
    for (const int code : {1, 4, 6, 9, 103, 104, 106, 300, 320, 390, 480}) {
        EXPECT_EQ(stored(acutBuildList(code, L"1F", 0)), Acad::eOk) << code;
    }
    EXPECT_EQ(stored(acutBuildList(40, 0.5, 70, 1, 90, 2, 280, 1, 0)), Acad::eOk);
}

TEST(XrecordItemsTest, BracketsMustStandInPairs) {
    EXPECT_EQ(stored(acutBuildList(102, L"{A", 8, L"x", 102, L"}", 102, L"{B", 102, L"}", 0)),
              Acad::eOk);
    EXPECT_EQ(stored(acutBuildList(102, L"{A", 8, L"x", 0)), Acad::eInvalidResBuf);
    EXPECT_EQ(stored(acutBuildList(102, L"}", 0)), Acad::eInvalidResBuf);
    EXPECT_EQ(stored(acutBuildList(102, L"A", 0)), Acad::eInvalidResBuf);
    EXPECT_EQ(stored(acutBuildList(102, L"{", 102, L"}", 0)), Acad::eInvalidResBuf);
    EXPECT_EQ(stored(acutBuildList(102, L"{A", 102, L"{B", 102, L"}", 102, L"}", 0)),
              Acad::eInvalidResBuf);
}

} // namespace
