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

} // namespace
