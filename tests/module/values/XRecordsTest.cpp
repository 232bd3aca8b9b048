#include "utilities/XRecords.h"
#include "module/utilities/UtilitiesTest.h"
#include "utilities/Commands.h"

#if defined(__SANITIZE_ADDRESS__)
#include <sanitizer/lsan_interface.h>
#endif

namespace module_tests {
namespace {

/// While one of these lives, objects that nobody frees are no fault: a dictionary that refuses a
/// new entry leaves it to nobody.
class LostObjects {
public:
    LostObjects() { expect(true); }
    LostObjects(const LostObjects&) = delete;
    LostObjects& operator=(const LostObjects&) = delete;
    ~LostObjects() { expect(false); }

private:
    static void expect([[maybe_unused]] bool lost) {
#if defined(__SANITIZE_ADDRESS__)
        lost ? __lsan_disable() : __lsan_enable();
#endif
    }
};

/// A record that neither takes items nor gives them out.
class StubbornRecord : public AcDbXrecord {
public:
    Acad::ErrorStatus setFromRbChain(const resbuf& /*chain*/, AcDbDatabase* /*database*/) override {
        return Acad::eInvalidResBuf;
    }
    Acad::ErrorStatus rbChain(resbuf** /*chain*/, AcDbDatabase* /*database*/) const override {
        return Acad::eNotApplicable;
    }
};

class XRecordsTest : public UtilitiesTest {
protected:
    AcDbObjectId root() const { return drawing.database().namedObjectsDictionaryId(); }
    static AcDbObjectId entry(const AcDbObjectId& dictionary, const wchar_t* name) {
        AcDbObjectId id;
        if (const auto* found = host_db::peek<AcDbDictionary>(dictionary)) {
            found->getAt(name, id);
        }
        return id;
    }
    AcDbObjectId dictionary() const { return entry(root(), L"SET"); }
    AcDbObjectId record() const { return entry(dictionary(), L"Scale"); }
    static Adesk::UInt32 entries(const AcDbObjectId& dictionary) {
        return host_db::peek<AcDbDictionary>(dictionary)->numEntries();
    }
    /// Makes dictionary and record with this text.
    void keep(const wchar_t* text) {
        ASSERT_EQ(PelSetXRecord(L"SET", L"Scale", text), 1);
        forget();
    }
    /// The text of the record, or what `PelGetXRecord` left there.
    static std::string kept(const wchar_t* before = L"as it was") {
        CString value = before;
        PelGetXRecord(L"SET", L"Scale", value);
        return utf8(value);
    }
    /// Enters an object of the test's own and closes it.
    static AcDbObjectId enter(const AcDbObjectId& dictionary, const wchar_t* name,
                              AcDbObject* object) {
        AcDbDictionary* opened = nullptr;
        AcDbObjectId id;
        EXPECT_EQ(acdbOpenObject(opened, dictionary, AcDb::kForWrite), Acad::eOk);
        EXPECT_EQ(opened->setAt(name, object, id), Acad::eOk);
        object->close();
        opened->close();
        return id;
    }
    /// Makes the record hold this chain, which is released.
    void fill(resbuf* chain) {
        keep(L"");
        AcDbXrecord* opened = nullptr;
        ASSERT_EQ(acdbOpenObject(opened, record(), AcDb::kForWrite), Acad::eOk);
        EXPECT_EQ(opened->setFromRbChain(*chain), Acad::eOk);
        opened->close();
        acutRelRb(chain);
        forget();
    }
    void empty() {
        keep(L"");
        AcDbDictionary* opened = nullptr;
        ASSERT_EQ(acdbOpenObject(opened, dictionary(), AcDb::kForWrite), Acad::eOk);
        auto* fresh = new AcDbXrecord;
        AcDbObjectId id;
        EXPECT_EQ(opened->setAt(L"Scale", fresh, id), Acad::eOk);
        fresh->close();
        opened->close();
        forget();
    }

    std::string opens(const char* mode, const AcDbObjectId& id) const {
        return std::string("open ") + mode + " " + handleOf(id);
    }
    std::string closes(const AcDbObjectId& id) const { return "close " + handleOf(id); }
    /// The way through all three levels and back.
    Lines wholeWay(const char* lock, const char* mode) const {
        return {std::string("lock ") + lock,
                opens(mode, root()),
                opens(mode, dictionary()),
                closes(root()),
                opens(mode, record()),
                closes(dictionary()),
                closes(record()),
                "unlock"};
    }
};

TEST_F(XRecordsTest, NewTextMakesTheDictionaryAndTheRecord) {
    forget();
    EXPECT_EQ(PelSetXRecord(L"SET", L"Scale", L"500"), 1);
    EXPECT_EQ(events(), wholeWay("kWrite", "write"));
    const auto* made = host_db::peek<AcDbXrecord>(record());
    ASSERT_NE(made, nullptr);
    EXPECT_EQ(made->ownerId(), dictionary());
    EXPECT_EQ(host_db::peek<AcDbDictionary>(dictionary())->ownerId(), root());
    ASSERT_EQ(made->items().size(), 1U);
    EXPECT_EQ(made->items()[0].type, 8);
    EXPECT_EQ(std::get<CString>(made->items()[0].value), L"500");
}

TEST_F(XRecordsTest, TextOfAPresentRecordIsReplaced) {
    keep(L"500");
    const AcDbObjectId before = record();
    EXPECT_EQ(PelSetXRecord(L"SET", L"Scale", L"1000"), 1);
    EXPECT_EQ(events(), wholeWay("kWrite", "write"));
    EXPECT_EQ(record(), before);
    EXPECT_EQ(entries(dictionary()), 1U);
    EXPECT_EQ(kept(), "1000");
}

TEST_F(XRecordsTest, RecordOfSeveralItemsIsOverwrittenWhole) {
    fill(acutBuildList(8, L"first", 40, 0.5, 8, L"second", 0));
    EXPECT_EQ(PelSetXRecord(L"SET", L"Scale", L"alone"), 1);
    const auto& items = host_db::peek<AcDbXrecord>(record())->items();
    ASSERT_EQ(items.size(), 1U);
    EXPECT_EQ(items[0].type, 8);
    EXPECT_EQ(std::get<CString>(items[0].value), L"alone");
}

TEST_F(XRecordsTest, SecondRecordGoesIntoThePresentDictionary) {
    keep(L"500");
    const AcDbObjectId before = dictionary();
    EXPECT_EQ(PelSetXRecord(L"SET", L"Unit", L"m"), 1);
    EXPECT_EQ(dictionary(), before);
    EXPECT_EQ(entries(dictionary()), 2U);
    EXPECT_EQ(kept(), "500");
}

TEST_F(XRecordsTest, TextIsReadUnderAReadLock) {
    keep(L"500");
    EXPECT_EQ(kept(), "500");
    EXPECT_EQ(events(), wholeWay("kRead", "read"));
}

TEST_F(XRecordsTest, TextsComeBackAsTheyWere) {
    const std::wstring longText(5000, L'管');
    for (const wchar_t* text : {L"", L" blanks around ", L"两\n行\t\"", longText.c_str()}) {
        EXPECT_EQ(PelSetXRecord(L"SET", L"Scale", text), 1);
        EXPECT_EQ(kept(), utf8(text));
    }
}

TEST_F(XRecordsTest, TextThatIsThereIsReadForOne) {
    keep(L"500");
    CString value = L"as it was";
    EXPECT_EQ(PelGetXRecord(L"SET", L"Scale", value), 1);
    EXPECT_EQ(utf8(value), "500");
}

TEST_F(XRecordsTest, NamesAreFoundInAnyCase) {
    keep(L"500");
    EXPECT_EQ(PelSetXRecord(L"set", L"SCALE", L"250"), 1);
    EXPECT_EQ(entries(dictionary()), 1U);
    EXPECT_EQ(kept(), "250");
}

TEST_F(XRecordsTest, NameThatWasNeverSetGivesZeroAndMakesNothing) {
    const Adesk::UInt32 before = entries(root());
    forget();
    CString value = L"as it was";
    EXPECT_EQ(PelGetXRecord(L"SET", L"Scale", value), 0);
    EXPECT_EQ(events(), (Lines{"lock kRead", opens("read", root()), closes(root()), "unlock"}));
    EXPECT_EQ(utf8(value), "as it was");
    EXPECT_EQ(entries(root()), before);
}

TEST_F(XRecordsTest, RecordThatWasNeverSetGivesZeroAndMakesNothing) {
    keep(L"500");
    CString value = L"as it was";
    EXPECT_EQ(PelGetXRecord(L"SET", L"Unit", value), 0);
    EXPECT_EQ(events(), (Lines{"lock kRead", opens("read", root()), opens("read", dictionary()),
                               closes(root()), closes(dictionary()), "unlock"}));
    EXPECT_EQ(utf8(value), "as it was");
    EXPECT_EQ(entries(dictionary()), 1U);
}

/// Somebody else has an object open while the body runs.
template<typename Body>
void whileOpen(const AcDbObjectId& id, AcDb::OpenMode mode, const Body& body) {
    AcDbObject* held = nullptr;
    ASSERT_EQ(acdbOpenAcDbObject(held, id, mode), Acad::eOk);
    body();
    held->close();
}

TEST_F(XRecordsTest, NamedObjectsInUseGiveZero) {
    keep(L"500");
    whileOpen(root(), AcDb::kForRead, [this] {
        forget();
        EXPECT_EQ(PelSetXRecord(L"SET", L"Scale", L"1"), 0);
        EXPECT_EQ(events(), (Lines{"lock kWrite", "unlock"}));
    });
    whileOpen(root(), AcDb::kForWrite, [this] {
        forget();
        EXPECT_EQ(kept(), "as it was");
        EXPECT_EQ(events(), (Lines{"lock kRead", "unlock"}));
    });
    EXPECT_EQ(kept(), "500");
}

TEST_F(XRecordsTest, DictionaryInUseGivesZeroAndMakesNoSecondOne) {
    keep(L"500");
    const Adesk::UInt32 before = entries(root());
    whileOpen(dictionary(), AcDb::kForRead, [this] {
        forget();
        EXPECT_EQ(PelSetXRecord(L"SET", L"Scale", L"1"), 0);
        EXPECT_EQ(events(),
                  (Lines{"lock kWrite", opens("write", root()), closes(root()), "unlock"}));
    });
    whileOpen(dictionary(), AcDb::kForWrite, [this] {
        forget();
        EXPECT_EQ(kept(), "as it was");
        EXPECT_EQ(events(), (Lines{"lock kRead", opens("read", root()), closes(root()), "unlock"}));
    });
    EXPECT_EQ(entries(root()), before);
    EXPECT_EQ(kept(), "500");
}

TEST_F(XRecordsTest, RecordInUseGivesZeroAndKeepsItsText) {
    keep(L"500");
    const auto upToTheDictionary = [this](const char* lock, const char* mode) {
        return Lines{std::string("lock ") + lock, opens(mode, root()),
                     opens(mode, dictionary()),   closes(root()),
                     closes(dictionary()),        "unlock"};
    };
    whileOpen(record(), AcDb::kForRead, [&] {
        forget();
        EXPECT_EQ(PelSetXRecord(L"SET", L"Scale", L"1"), 0);
        EXPECT_EQ(events(), upToTheDictionary("kWrite", "write"));
    });
    whileOpen(record(), AcDb::kForWrite, [&] {
        forget();
        EXPECT_EQ(kept(), "as it was");
        EXPECT_EQ(events(), upToTheDictionary("kRead", "read"));
    });
    EXPECT_EQ(entries(dictionary()), 1U);
    EXPECT_EQ(kept(), "500");
}

TEST_F(XRecordsTest, DictionaryThatCannotBeEnteredGivesZero) {
    const Adesk::UInt32 before = entries(root());
    forget();
    {
        const LostObjects lost;
        EXPECT_EQ(PelSetXRecord(L"", L"Scale", L"1"), 0);
    }
    EXPECT_EQ(events(), (Lines{"lock kWrite", opens("write", root()), closes(root()), "unlock"}));
    EXPECT_EQ(entries(root()), before);
    CString value = L"as it was";
    EXPECT_EQ(PelGetXRecord(L"", L"Scale", value), 0);
    EXPECT_EQ(utf8(value), "as it was");
}

TEST_F(XRecordsTest, RecordThatCannotBeEnteredGivesZero) {
    keep(L"500");
    {
        const LostObjects lost;
        EXPECT_EQ(PelSetXRecord(L"SET", L"", L"1"), 0);
    }
    EXPECT_EQ(events(), (Lines{"lock kWrite", opens("write", root()), opens("write", dictionary()),
                               closes(root()), closes(dictionary()), "unlock"}));
    EXPECT_EQ(entries(dictionary()), 1U);
    EXPECT_EQ(kept(), "500");
}

TEST_F(XRecordsTest, EntryOfAnotherKindIsClosedAgain) {
    const AcDbObjectId other = enter(root(), L"SET", new AcDbXrecord);
    forget();
    EXPECT_EQ(PelSetXRecord(L"SET", L"Scale", L"1"), 0);
    EXPECT_EQ(events(), (Lines{"lock kWrite", opens("write", root()), opens("write", other),
                               closes(other), closes(root()), "unlock"}));
    EXPECT_EQ(kept(), "as it was");
    EXPECT_TRUE(host_db::peek<AcDbXrecord>(other)->items().empty());
}

TEST_F(XRecordsTest, RecordOfAnotherKindIsClosedAgain) {
    const AcDbObjectId set = enter(root(), L"SET", new AcDbDictionary);
    const AcDbObjectId other = enter(set, L"Scale", new AcDbDictionary);
    forget();
    EXPECT_EQ(kept(), "as it was");
    EXPECT_EQ(events(),
              (Lines{"lock kRead", opens("read", root()), opens("read", set), closes(root()),
                     opens("read", other), closes(other), closes(set), "unlock"}));
    EXPECT_EQ(PelSetXRecord(L"SET", L"Scale", L"1"), 0);
    EXPECT_EQ(entries(set), 1U);
}

TEST_F(XRecordsTest, RefusedTextGivesZeroWithEverythingClosed) {
    enter(enter(root(), L"SET", new AcDbDictionary), L"Scale", new StubbornRecord);
    forget();
    EXPECT_EQ(PelSetXRecord(L"SET", L"Scale", L"1"), 0);
    EXPECT_EQ(events(), wholeWay("kWrite", "write"));
    forget();
    EXPECT_EQ(kept(), "as it was");
    EXPECT_EQ(events(), wholeWay("kRead", "read"));
}

TEST_F(XRecordsTest, FirstItemOfTheChainIsRead) {
    fill(acutBuildList(1, L"first", 8, L"second", 0));
    EXPECT_EQ(kept(), "first");
    fill(acutBuildList(300, L"arbitrary text", 40, 2.5, 0));
    EXPECT_EQ(kept(), "arbitrary text");
}

TEST_F(XRecordsTest, HandlesAreTextsToo) {
    for (const int code : {103, 109, 320, 329, 390, 399, 480, 481}) {
        fill(acutBuildList(code, L"1F", 0));
        EXPECT_EQ(kept(), "1F") << code;
    }
}

TEST_F(XRecordsTest, RecordWithoutATextInFrontGivesZero) {
    fill(acutBuildList(40, 2.5, 8, L"second", 0));
    EXPECT_EQ(kept(), "as it was");
    fill(acutBuildList(90, 7, 0));
    EXPECT_EQ(kept(), "as it was");
    empty();
    EXPECT_EQ(kept(), "as it was");
    EXPECT_EQ(events(), wholeWay("kRead", "read"));
}

TEST_F(XRecordsTest, ErasedRecordIsMissingAndMadeAnew) {
    keep(L"500");
    const AcDbObjectId erased = record();
    drawing.erase(erased);
    EXPECT_EQ(kept(), "as it was");
    EXPECT_EQ(PelSetXRecord(L"SET", L"Scale", L"250"), 1);
    EXPECT_NE(record(), erased);
    EXPECT_EQ(kept(), "250");
}

TEST_F(XRecordsTest, ErasedDictionaryTakesItsRecordsAlong) {
    keep(L"500");
    const AcDbObjectId erased = record();
    drawing.erase(dictionary());
    EXPECT_TRUE(erased.isErased());
    EXPECT_EQ(kept(), "as it was");
    EXPECT_EQ(PelSetXRecord(L"SET", L"Unit", L"m"), 1);
    EXPECT_EQ(kept(), "as it was") << "the new dictionary has its own record alone";
}

TEST_F(XRecordsTest, LockOfAnotherGivesZeroForWritingOnly) {
    keep(L"500");
    AcApDocument* document = acDocManager()->curDocument();
    ASSERT_EQ(acDocManager()->lockByAnother(document, AcAp::kRead), Acad::eOk);
    EXPECT_EQ(PelSetXRecord(L"SET", L"Scale", L"1"), 0);
    EXPECT_EQ(events(), Lines{}) << "neither the lock nor the dictionary is had";
    EXPECT_EQ(kept(), "500");
    ASSERT_EQ(acDocManager()->lockByAnother(document, AcAp::kNotLocked), Acad::eOk);
}

TEST_F(XRecordsTest, WithoutADrawingNothingIsKept) {
    drawing.close();
    EXPECT_EQ(PelSetXRecord(L"SET", L"Scale", L"1"), 0);
    EXPECT_EQ(kept(), "as it was");
}

TEST_F(XRecordsTest, UndoBringsTheFormerTextBack) {
    keep(L"500");
    PelStartCommandGroup();
    EXPECT_EQ(PelSetXRecord(L"SET", L"Scale", L"1000"), 1);
    PelEndCommandGroup();
    ASSERT_EQ(acedCommand(RTSTR, L"Undo", RTSTR, L"1", 0), RTNORM);
    EXPECT_EQ(kept(), "500");
}

TEST_F(XRecordsTest, UndoTakesTheNewDictionaryAway) {
    const Adesk::UInt32 before = entries(root());
    PelStartCommandGroup();
    EXPECT_EQ(PelSetXRecord(L"SET", L"Scale", L"1000"), 1);
    PelEndCommandGroup();
    ASSERT_EQ(acedCommand(RTSTR, L"Undo", RTSTR, L"1", 0), RTNORM);
    EXPECT_EQ(entries(root()), before);
    EXPECT_EQ(kept(), "as it was");
}

TEST_F(XRecordsTest, DrawingOfR12TakesNoTextAndCanBeSaved) {
    drawing.openDxf("0\nSECTION\n2\nHEADER\n9\n$ACADVER\n1\nAC1009\n0\nENDSEC\n"
                    "0\nSECTION\n2\nENTITIES\n0\nENDSEC\n0\nEOF\n");
    forget();
    {
        const LostObjects lost;
        EXPECT_EQ(PelSetXRecord(L"SET", L"Scale", L"500"), 0);
    }
    EXPECT_EQ(events(), (Lines{"lock kWrite", opens("write", root()), closes(root()), "unlock"}));
    EXPECT_EQ(kept(), "as it was");
    EXPECT_EQ(entries(root()), 0U);
    std::string error;
    const std::string path = drawing.folder().text() + "/saved.dxf";
    EXPECT_TRUE(host::saveDocument(acDocManager()->curDocument(), path, error)) << error;
}

TEST_F(XRecordsTest, DrawingSettingsSeeWhatIsSet) {
    siblings::clearDrawingSettings();
    EXPECT_EQ(GetVZDrawScale(), 1000.0);
    EXPECT_EQ(PelSetXRecord(L"TKVLT_DRAWING_SETTINGS", L"DrawScale", L"500"), 1);
    EXPECT_EQ(GetVZDrawScale(), 500.0);
}

} // namespace
} // namespace module_tests
