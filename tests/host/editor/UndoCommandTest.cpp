#include "host/editor/CommandFixture.h"

#include "application/AcApDocument.h"
#include "application/HostDocuments.h"
#include "database/AcDbXrecord.h"
#include "database/SymbolTableSearch.h"
#include "database/UndoJournal.h"

#include <filesystem>
#include <fstream>
#include <random>
#include <unistd.h>

namespace {

class UndoCommandTest : public CommandFixture {
protected:
    static int undo(const ACHAR* option) { return acedCommand(RTSTR, L"Undo", RTSTR, option, 0); }

    template<typename T, typename Change>
    static void change(AcDbObjectId id, const Change& change) {
        T* object = nullptr;
        ASSERT_EQ(acdbOpenObject(object, id, AcDb::kForWrite), Acad::eOk);
        change(*object);
        object->close();
    }
};

TEST_F(UndoCommandTest, ACommandIsOneStep) {
    const AcDbObjectId line = addLine({0, 0, 0}, {10, 0, 0});
    const auto before = dumpOf(database());
    ASSERT_EQ(breakAt(line, {3, 0, 0}, {7, 0, 0}), RTNORM);
    const AcDbObjectId piece = entities()[1];
    EXPECT_NE(dumpOf(database()), before);
    EXPECT_EQ(undo(L"1"), RTNORM);
    EXPECT_EQ(dumpOf(database()), before);
    EXPECT_FALSE(piece.isValid());
}

TEST_F(UndoCommandTest, WhatAProgramChangesBetweenCommandsIsAStep) {
    const AcDbObjectId line = addLine({0, 0, 0}, {10, 0, 0});
    ASSERT_EQ(acedCommand(RTSTR, L"redraw", 0), RTNORM);
    const auto first = dumpOf(database());
    change<AcDbLine>(line, [](AcDbLine& it) { it.setEndPoint({5, 5, 5}); });
    change<AcDbLine>(line, [](AcDbLine& it) { it.setColorIndex(4); });
    const auto second = dumpOf(database());
    ASSERT_EQ(breakAt(line, {1, 1, 1}, {2, 2, 2}), RTNORM);
    EXPECT_EQ(undo(L""), RTNORM);
    EXPECT_EQ(dumpOf(database()), second);
    EXPECT_EQ(undo(L""), RTNORM);
    EXPECT_EQ(dumpOf(database()), first);
}

TEST_F(UndoCommandTest, ACountTakesBackThatManySteps) {
    const AcDbObjectId line = addLine({0, 0, 0}, {10, 0, 0});
    const auto before = dumpOf(database());
    ASSERT_EQ(breakAt(line, {8, 0, 0}, {9, 0, 0}), RTNORM);
    ASSERT_EQ(breakAt(line, {6, 0, 0}, {7, 0, 0}), RTNORM);
    const auto two = dumpOf(database());
    ASSERT_EQ(breakAt(line, {4, 0, 0}, {5, 0, 0}), RTNORM);
    ASSERT_EQ(breakAt(line, {2, 0, 0}, {3, 0, 0}), RTNORM);
    EXPECT_EQ(entities().size(), 5U);
    EXPECT_EQ(acedCommand(RTSTR, L"_UNDO", RTSHORT, 2, 0), RTNORM);
    EXPECT_EQ(dumpOf(database()), two);
    EXPECT_EQ(undo(L"2"), RTNORM);
    EXPECT_EQ(dumpOf(database()), before);
    // Beyond all steps, to the empty drawing.
    EXPECT_EQ(undo(L"99"), RTNORM);
    EXPECT_TRUE(entities().empty());
    EXPECT_EQ(undo(L"1"), RTNORM);
}

TEST_F(UndoCommandTest, AGroupIsOneStep) {
    const AcDbObjectId line = addLine({0, 0, 0}, {10, 0, 0});
    const auto before = dumpOf(database());
    EXPECT_EQ(undo(L"Group"), RTNORM);
    ASSERT_EQ(breakAt(line, {8, 0, 0}, {9, 0, 0}), RTNORM);
    addLine({0, 9, 0}, {9, 9, 0});
    ASSERT_EQ(breakAt(line, {6, 0, 0}, {7, 0, 0}), RTNORM);
    EXPECT_EQ(undo(L"End"), RTNORM);
    EXPECT_EQ(entities().size(), 4U);
    EXPECT_EQ(undo(L"1"), RTNORM);
    EXPECT_EQ(dumpOf(database()), before);
}

TEST_F(UndoCommandTest, OptionsMayBeShortened) {
    const AcDbObjectId line = addLine({0, 0, 0}, {10, 0, 0});
    const auto before = dumpOf(database());
    EXPECT_EQ(undo(L"_g"), RTNORM);
    EXPECT_TRUE(database().undoJournal().isGroupOpen());
    ASSERT_EQ(breakAt(line, {8, 0, 0}, {9, 0, 0}), RTNORM);
    ASSERT_EQ(breakAt(line, {6, 0, 0}, {7, 0, 0}), RTNORM);
    EXPECT_EQ(undo(L"E"), RTNORM);
    EXPECT_FALSE(database().undoJournal().isGroupOpen());
    EXPECT_EQ(undo(L"1"), RTNORM);
    EXPECT_EQ(dumpOf(database()), before);
}

TEST_F(UndoCommandTest, WithinAGroupACountStopsAtItsBeginning) {
    const AcDbObjectId line = addLine({0, 0, 0}, {10, 0, 0});
    ASSERT_EQ(breakAt(line, {8, 0, 0}, {9, 0, 0}), RTNORM);
    const auto atGroup = dumpOf(database());
    undo(L"Group");
    ASSERT_EQ(breakAt(line, {6, 0, 0}, {7, 0, 0}), RTNORM);
    EXPECT_EQ(undo(L"9"), RTNORM);
    EXPECT_EQ(dumpOf(database()), atGroup);
    undo(L"End");
    EXPECT_EQ(undo(L"1"), RTNORM);
    EXPECT_EQ(entities().size(), 1U);
}

TEST_F(UndoCommandTest, AGroupWithinAGroupEndsTheFirst) {
    const AcDbObjectId line = addLine({0, 0, 0}, {10, 0, 0});
    undo(L"Group");
    ASSERT_EQ(breakAt(line, {8, 0, 0}, {9, 0, 0}), RTNORM);
    const auto between = dumpOf(database());
    undo(L"Group");
    ASSERT_EQ(breakAt(line, {6, 0, 0}, {7, 0, 0}), RTNORM);
    undo(L"End");
    // The outer end finds no group.
    EXPECT_EQ(undo(L"End"), RTNORM);
    EXPECT_EQ(undo(L"1"), RTNORM);
    EXPECT_EQ(dumpOf(database()), between);
}

TEST_F(UndoCommandTest, EverythingThatADrawingHoldsComesBack) {
    acdbRegApp(L"OLD");
    const AcDbObjectId block = addBlock(L"WELL");
    const AcDbObjectId line = addLine();
    const AcDbObjectId well = add(std::make_unique<AcDbBlockReference>(AcGePoint3d(), block));
    const AcDbObjectId doomed = addLine({7, 7, 7}, {8, 8, 8});
    ASSERT_EQ(acedCommand(RTSTR, L"redraw", 0), RTNORM);
    const auto before = dumpOf(database());
    ASSERT_EQ(undo(L"Group"), RTNORM);

    acdbRegApp(L"NEW");
    change<AcDbLine>(line, [](AcDbLine& it) {
        resbuf* chain = acutBuildList(1001, L"NEW", 1000, L"x", 1001, L"OLD", 1040, 1.5, 0);
        EXPECT_EQ(it.setXData(chain), Acad::eOk);
        acutRelRb(chain);
        EXPECT_EQ(it.createExtensionDictionary(), Acad::eOk);
    });
    change<AcDbLine>(doomed, [](AcDbLine& it) { EXPECT_EQ(it.erase(), Acad::eOk); });
    change<AcDbBlockReference>(well, [](AcDbBlockReference& it) {
        auto* attribute = new AcDbAttribute;
        EXPECT_EQ(it.appendAttribute(attribute), Acad::eOk);
        attribute->close();
        it.createExtensionDictionary();
    });
    change<AcDbBlockTableRecord>(block, [](AcDbBlockTableRecord& it) {
        it.setName(L"RENAMED");
        it.setOrigin({1, 2, 3});
    });
    addTo(block, std::make_unique<AcDbLine>());
    auto layer = std::make_unique<AcDbLayerTableRecord>();
    layer->setName(L"管线");
    const AcDbObjectId layerId = addRecord<AcDbLayerTable>(std::move(layer));
    EXPECT_EQ(database().setClayer(layerId), Acad::eOk);
    change<AcDbDictionary>(database().namedObjectsDictionaryId(), [](AcDbDictionary& it) {
        AcDbObjectId id;
        auto* record = new AcDbXrecord;
        EXPECT_EQ(it.setAt(L"RECORD", record, id), Acad::eOk);
        record->close();
    });
    ASSERT_EQ(undo(L"End"), RTNORM);
    EXPECT_NE(dumpOf(database()), before);
    EXPECT_EQ(undo(L"1"), RTNORM);
    EXPECT_EQ(dumpOf(database()), before);
    EXPECT_TRUE(doomed.isValid());
}

TEST_F(UndoCommandTest, ATakenBackApplicationIsUnknownAgain) {
    const AcDbObjectId line = addLine();
    ASSERT_EQ(acedCommand(RTSTR, L"redraw", 0), RTNORM);
    acdbRegApp(L"NEW");
    ASSERT_EQ(undo(L"1"), RTNORM);
    resbuf* chain = acutBuildList(1001, L"NEW", 1000, L"x", 0);
    change<AcDbLine>(line,
                     [&](AcDbLine& it) { EXPECT_EQ(it.setXData(chain), Acad::eRegappIdNotFound); });
    acdbRegApp(L"NEW");
    change<AcDbLine>(line, [&](AcDbLine& it) { EXPECT_EQ(it.setXData(chain), Acad::eOk); });
    acutRelRb(chain);
    const auto* table = host_db::peek<AcDbRegAppTable>(database().regAppTableId());
    EXPECT_TRUE(table->has(L"NEW"));
}

TEST_F(UndoCommandTest, IdsOfDroppedEntitiesAreNotGivenAgain) {
    addLine();
    ASSERT_EQ(acedCommand(RTSTR, L"redraw", 0), RTNORM);
    const AcDbObjectId dropped = addLine();
    const AcDbHandle handle = dropped.handle();
    ASSERT_EQ(undo(L"1"), RTNORM);
    const AcDbObjectId next = addLine();
    EXPECT_EQ(next.handle(), handle);
    EXPECT_NE(next, dropped);
    EXPECT_FALSE(dropped.isValid());
    AcDbObjectId found;
    EXPECT_EQ(database().getAcDbObjectId(found, false, handle), Acad::eOk);
    EXPECT_EQ(found, next);
}

TEST_F(UndoCommandTest, ManyDroppedHandlesLeaveTheOthersFound) {
    std::vector<AcDbObjectId> kept;
    for (int i = 0; i < 200; ++i) {
        kept.push_back(addLine());
    }
    ASSERT_EQ(acedCommand(RTSTR, L"redraw", 0), RTNORM);
    for (int i = 0; i < 500; ++i) {
        addLine();
    }
    ASSERT_EQ(undo(L"1"), RTNORM);
    EXPECT_EQ(entities(), kept);
    for (const AcDbObjectId id : kept) {
        AcDbObjectId found;
        ASSERT_EQ(database().getAcDbObjectId(found, false, id.handle()), Acad::eOk);
        ASSERT_EQ(found, id);
    }
}

TEST_F(UndoCommandTest, AnOpenObjectRefusesIt) {
    const AcDbObjectId line = addLine({0, 0, 0}, {10, 0, 0});
    ASSERT_EQ(breakAt(line, {3, 0, 0}, {7, 0, 0}), RTNORM);
    const auto before = dumpOf(database());
    AcDbLine* open = nullptr;
    ASSERT_EQ(acdbOpenObject(open, entities()[1], AcDb::kForRead), Acad::eOk);
    EXPECT_EQ(undo(L"1"), RTERROR);
    open->close();
    EXPECT_EQ(dumpOf(database()), before);
    EXPECT_EQ(undo(L"1"), RTNORM);
    EXPECT_EQ(entities().size(), 1U);
}

TEST_F(UndoCommandTest, OnlyCountsAndOptionsAreTaken) {
    const AcDbObjectId line = addLine({0, 0, 0}, {10, 0, 0});
    ASSERT_EQ(breakAt(line, {3, 0, 0}, {7, 0, 0}), RTNORM);
    const auto before = dumpOf(database());
    for (const ACHAR* option : {L"0", L"-1", L"x", L"1x", L"Groups", L"99999"}) {
        EXPECT_EQ(undo(option), RTERROR);
    }
    EXPECT_EQ(acedCommand(RTSTR, L"Undo", RTREAL, 1.5, 0), RTERROR);
    EXPECT_EQ(acedCommand(RTSTR, L"Undo", RTENAME, Name(line).name, 0), RTERROR);
    EXPECT_EQ(acedCommand(RTSTR, L"Undo", 0), RTERROR);
    EXPECT_EQ(dumpOf(database()), before);
}

TEST_F(UndoCommandTest, ADrawingFromAFileIsUnmodifiedAgain) {
    const std::filesystem::path path = std::filesystem::temp_directory_path() /
                                       ("tkvlt_undo_test_" + std::to_string(::getpid()) + ".dxf");
    std::ofstream(path)
        << "  0\nSECTION\n  2\nTABLES\n  0\nTABLE\n  2\nAPPID\n  0\nAPPID\n  2\nAPP\n 70\n0\n"
           "  0\nENDTAB\n  0\nENDSEC\n  0\nSECTION\n  2\nENTITIES\n  0\nLINE\n  5\nAB\n  8\n0\n"
           " 10\n0.0\n 20\n0.0\n 30\n0.0\n 11\n10.0\n 21\n0.0\n 31\n0.0\n1001\nAPP\n1000\ntext\n"
           "  0\nCIRCLE\n  5\nAC\n  8\n0\n 10\n5.0\n 20\n0.0\n 30\n0.0\n 40\n2.0\n"
           "  0\nENDSEC\n  0\nEOF\n";
    std::string error;
    AcApDocument* document = host::openDocument(path.string(), error);
    std::filesystem::remove(path);
    ASSERT_NE(document, nullptr) << error;
    AcDbDatabase& drawing = *document->database();
    AcDbObjectId line;
    AcDbObjectId circle;
    ASSERT_EQ(drawing.getAcDbObjectId(line, false, AcDbHandle(0xAB)), Acad::eOk);
    ASSERT_EQ(drawing.getAcDbObjectId(circle, false, AcDbHandle(0xAC)), Acad::eOk);
    const auto before = dumpOf(drawing);
    EXPECT_FALSE(host_db::peek<AcDbLine>(line)->isModified());

    undo(L"Group");
    EXPECT_EQ(trimAt(circle, line, {5, 0, 0}), RTNORM);
    EXPECT_EQ(breakAt(circle, {7, 0, 0}, {5, 2, 0}), RTNORM);
    change<AcDbLine>(line, [](AcDbLine& it) {
        resbuf* chain = acutBuildList(1001, L"APP", 1000, L"other", 0);
        EXPECT_EQ(it.setXData(chain), Acad::eOk);
        acutRelRb(chain);
        it.erase();
    });
    undo(L"End");
    EXPECT_NE(dumpOf(drawing), before);
    EXPECT_EQ(undo(L"1"), RTNORM);
    EXPECT_EQ(dumpOf(drawing), before);
    EXPECT_FALSE(host_db::peek<AcDbLine>(line)->isModified());
    EXPECT_EQ(host_db::peek<AcDbLine>(line)->ownXdata(), nullptr);
    EXPECT_FALSE(host_db::peek<AcDbCircle>(circle)->isNewObject());
    host::closeDocument(document);
}

/// Random changes by commands and by a program, each with what stood before it.
class RandomChanges {
public:
    RandomChanges(AcDbDatabase& database, unsigned seed) : database_(database), random_(seed) {}

    int below(int limit) { return static_cast<int>(random_() % static_cast<unsigned>(limit)); }
    double coordinate() { return below(1000) / 10.0; }
    AcGePoint3d point() { return {coordinate(), coordinate(), coordinate()}; }

    std::vector<AcDbObjectId> living() const {
        std::vector<AcDbObjectId> ids;
        for (const AcDbObjectId id :
             host_db::peek<AcDbBlockTableRecord>(database_.modelSpaceId())->entityIds()) {
            if (id.isValid()) {
                ids.push_back(id);
            }
        }
        return ids;
    }

    AcDbObjectId any() {
        const auto ids = living();
        return ids[static_cast<std::size_t>(below(static_cast<int>(ids.size())))];
    }

private:
    AcDbDatabase& database_;
    std::mt19937 random_;
};

class UndoPropertyTest : public UndoCommandTest {
protected:
    void addSome(RandomChanges& random) {
        switch (random.below(3)) {
        case 0:
            addLine(random.point(), random.point());
            break;
        case 1:
            addCircle(random.point(), 1.0 + random.coordinate());
            break;
        default:
            addPolyline({{random.coordinate(), random.coordinate()},
                         {random.coordinate(), random.coordinate()},
                         {random.coordinate(), random.coordinate()}},
                        random.below(2) == 0);
        }
    }

    void changeSome(RandomChanges& random) {
        AcDbEntity* entity = nullptr;
        ASSERT_EQ(acdbOpenObject(entity, random.any(), AcDb::kForWrite), Acad::eOk);
        switch (random.below(4)) {
        case 0:
            entity->setColorIndex(static_cast<Adesk::UInt16>(random.below(257)));
            break;
        case 1: {
            const std::wstring value = std::to_wstring(random.below(100));
            resbuf* chain = acutBuildList(1001, L"APP", 1000, value.c_str(), 0);
            EXPECT_EQ(entity->setXData(chain), Acad::eOk);
            acutRelRb(chain);
            break;
        }
        case 2:
            if (random.living().size() > 5) {
                entity->erase();
            }
            break;
        default:
            if (auto* line = AcDbLine::cast(entity)) {
                line->setStartPoint(random.point());
            }
        }
        entity->close();
    }

    void doSomething(RandomChanges& random) {
        switch (random.below(4)) {
        case 0:
            addSome(random);
            break;
        case 1:
            changeSome(random);
            break;
        case 2:
            breakAt(random.any(), random.point(), random.point());
            break;
        default:
            trimAt(random.any(), random.any(), random.point());
        }
    }
};

TEST_F(UndoPropertyTest, AGroupOfAnythingIsTakenBackObjectByObject) {
    acdbRegApp(L"APP");
    RandomChanges random(database(), 20240607);
    for (int i = 0; i < 20; ++i) {
        addSome(random);
    }
    ASSERT_EQ(acedCommand(RTSTR, L"redraw", 0), RTNORM);
    std::vector<std::vector<std::string>> states;
    for (int group = 0; group < 40; ++group) {
        states.push_back(dumpOf(database()));
        ASSERT_EQ(undo(L"Group"), RTNORM);
        // A group that changed nothing would be no step to take back.
        addSome(random);
        const int changes = random.below(12);
        for (int i = 0; i < changes; ++i) {
            doSomething(random);
        }
        ASSERT_EQ(undo(L"End"), RTNORM);
    }
    for (std::size_t group = states.size(); group-- > 0;) {
        ASSERT_EQ(undo(L"1"), RTNORM);
        ASSERT_EQ(dumpOf(database()), states[group]) << "group " << group;
    }
}

} // namespace
