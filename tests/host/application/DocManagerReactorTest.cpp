#include "EmbeddedHost.h"

#include <gtest/gtest.h>

#include <functional>
#include <map>

namespace {

using Lines = std::vector<std::string>;

/// Notes what it is told, documents by the letters they were given.
class Witness : public AcApDocManagerReactor {
public:
    ~Witness() override { acDocManager()->removeReactor(this); }

    void documentCreateStarted(AcApDocument* d) override {
        // Documents are lettered in the order of their creation.
        const char letter = static_cast<char>('A' + letters.size());
        letters[d] = letter;
        note("create started", d);
        EXPECT_FALSE(acDocManager()->isOpen(d));
    }
    void documentCreated(AcApDocument* d) override {
        note("created", d);
        EXPECT_TRUE(acDocManager()->isOpen(d));
        EXPECT_NE(acDocManager()->curDocument(), d);
    }
    void documentToBeDestroyed(AcApDocument* d) override {
        note("to be destroyed", d);
        EXPECT_TRUE(acDocManager()->isOpen(d));
        EXPECT_NE(d->database(), nullptr);
    }
    void documentDestroyed(const ACHAR* name) override {
        lines.push_back("destroyed '" + host_text::toUtf8(name) + "'");
    }
    void documentBecameCurrent(AcApDocument* d) override {
        note("became current", d);
        EXPECT_EQ(acDocManager()->curDocument(), d);
        EXPECT_EQ(acdbHostApplicationServices()->workingDatabase(),
                  d == nullptr ? nullptr : d->database());
    }
    void documentToBeActivated(AcApDocument* d) override { note("to be activated", d); }
    void documentToBeDeactivated(AcApDocument* d) override { note("to be deactivated", d); }
    void documentActivated(AcApDocument* d) override { note("activated", d); }

    Lines lines;
    std::map<AcApDocument*, char> letters;

private:
    void note(const std::string& what, AcApDocument* d) {
        lines.push_back(what + " " + (d == nullptr ? '-' : letters.at(d)));
    }
};

class DocManagerReactorTest : public ::testing::Test {
protected:
    DocManagerReactorTest() : reactorsBefore_(acDocManager()->reactorCount()) {
        acDocManager()->addReactor(&witness_);
    }
    ~DocManagerReactorTest() override {
        acDocManager()->removeReactor(&witness_);
        while (acDocManager()->curDocument() != nullptr) {
            host::closeDocument(acDocManager()->curDocument());
        }
        EXPECT_EQ(acDocManager()->reactorCount(), reactorsBefore_);
    }

    /// What has been told since the last call.
    Lines told() { return std::exchange(witness_.lines, {}); }

    Witness witness_;
    std::size_t reactorsBefore_;
};

TEST_F(DocManagerReactorTest, CreationIsToldBeforeTheDocumentIsCurrent) {
    host::newDocument();
    EXPECT_EQ(told(), (Lines{"create started A", "created A", "to be activated A",
                             "became current A", "activated A"}));
    host::newDocument();
    EXPECT_EQ(told(), (Lines{"create started B", "created B", "to be deactivated A",
                             "to be activated B", "became current B", "activated B"}));
}

TEST_F(DocManagerReactorTest, ActivationIsToldWhenAnotherComesToTheFront) {
    AcApDocument* a = host::newDocument();
    host::newDocument();
    told();
    EXPECT_EQ(acDocManager()->activateDocument(a), Acad::eOk);
    EXPECT_EQ(told(), (Lines{"to be deactivated B", "to be activated A", "became current A",
                             "activated A"}));
    EXPECT_EQ(acDocManager()->setCurDocument(a), Acad::eOk);
    EXPECT_EQ(told(), Lines{});
    EXPECT_EQ(acDocManager()->activateDocument(nullptr), Acad::eInvalidInput);
    EXPECT_EQ(told(), Lines{});
}

TEST_F(DocManagerReactorTest, DestructionIsToldBeforeAndAfter) {
    AcApDocument* a = host::newDocument();
    AcApDocument* b = host::newDocument();
    AcApDocument* c = host::newDocument();
    told();
    host::closeDocument(a);
    EXPECT_EQ(told(), (Lines{"to be destroyed A", "destroyed ''"}));
    host::closeDocument(c);
    EXPECT_EQ(told(), (Lines{"to be destroyed C", "destroyed ''", "to be activated B",
                             "became current B", "activated B"}));
    host::closeDocument(b);
    EXPECT_EQ(told(), (Lines{"to be destroyed B", "destroyed ''", "became current -"}));
    host::closeDocument(b);
    EXPECT_EQ(told(), Lines{});
}

TEST_F(DocManagerReactorTest, TheNameOfTheFileOutlivesItsDocument) {
    std::string error;
    const std::string path = TKVLT_EXAMPLES_DIR "/town.dxf";
    AcApDocument* town = host::openDocument(path, error);
    ASSERT_NE(town, nullptr) << error;
    told();
    host::closeDocument(town);
    EXPECT_EQ(told().at(1), "destroyed '" + path + "'");
}

TEST_F(DocManagerReactorTest, AFileThatCannotBeReadTellsNothing) {
    std::string error;
    EXPECT_EQ(host::openDocument(TKVLT_EXAMPLES_DIR "/none.dxf", error), nullptr);
    EXPECT_EQ(told(), Lines{});
}

TEST_F(DocManagerReactorTest, AReactorIsAddedOnceAndToldUntilItLeaves) {
    acDocManager()->addReactor(&witness_);
    acDocManager()->addReactor(nullptr);
    EXPECT_EQ(acDocManager()->reactorCount(), reactorsBefore_ + 1);
    const host::HostRecorder recorder;
    acDocManager()->removeReactor(&witness_);
    acDocManager()->removeReactor(&witness_);
    EXPECT_EQ(recorder.lines(), std::vector<std::wstring>{L"reactor removed"});
    host::newDocument();
    EXPECT_EQ(told(), Lines{});
}

/// Takes another reactor away when a document is created.
class Jealous : public AcApDocManagerReactor {
public:
    explicit Jealous(AcApDocManagerReactor& other) : other_(other) {}
    void documentCreateStarted(AcApDocument* /*document*/) override {
        acDocManager()->removeReactor(&other_);
        acDocManager()->removeReactor(this);
    }

private:
    AcApDocManagerReactor& other_;
};

TEST_F(DocManagerReactorTest, AReactorMayTakeItselfAndOthersAwayWhileItIsTold) {
    Witness second;
    Jealous jealous(second);
    acDocManager()->addReactor(&jealous);
    acDocManager()->addReactor(&second);
    host::newDocument();
    EXPECT_EQ(second.lines, Lines{});
    EXPECT_EQ(acDocManager()->reactorCount(), reactorsBefore_ + 1);
    EXPECT_EQ(told().size(), 5U);
}

/// Does something once at one of the events. The witness stands in front of it or behind it.
class Meddler : public AcApDocManagerReactor {
public:
    using Deed = std::function<void(AcApDocument*)>;

    Meddler() { acDocManager()->addReactor(this); }
    ~Meddler() override { acDocManager()->removeReactor(this); }

    void documentCreated(AcApDocument* d) override { once(created, d); }
    void documentDestroyed(const ACHAR* /*name*/) override { once(destroyed, nullptr); }
    void documentToBeDestroyed(AcApDocument* d) override { once(toBeDestroyed, d); }
    void documentToBeActivated(AcApDocument* d) override { once(toBeActivated, d); }
    void documentToBeDeactivated(AcApDocument* d) override { once(toBeDeactivated, d); }
    void documentBecameCurrent(AcApDocument* d) override { once(becameCurrent, d); }

    Deed created, destroyed, toBeDestroyed, toBeActivated, toBeDeactivated, becameCurrent;

private:
    static void once(Deed& deed, AcApDocument* document) {
        if (const Deed now = std::exchange(deed, nullptr)) {
            now(document);
        }
    }
};

TEST_F(DocManagerReactorTest, WhileADestructionIsToldNoDocumentIsCurrent) {
    Meddler meddler;
    host::newDocument();
    AcApDocument* b = host::newDocument();
    const AcApDocument* current = b;
    meddler.destroyed = [&](AcApDocument* /*none*/) {
        current = acDocManager()->curDocument();
        EXPECT_EQ(acdbHostApplicationServices()->workingDatabase(), nullptr);
    };
    host::closeDocument(b);
    EXPECT_EQ(current, nullptr);
}

TEST_F(DocManagerReactorTest, WhatAReactorBringsToTheFrontAfterADestructionStaysThere) {
    Meddler meddler;
    AcApDocument* a = host::newDocument();
    host::newDocument();
    AcApDocument* c = host::newDocument();
    told();
    meddler.destroyed = [&](AcApDocument* /*none*/) { acDocManager()->activateDocument(a); };
    host::closeDocument(c);
    EXPECT_EQ(acDocManager()->curDocument(), a);
    EXPECT_EQ(told(), (Lines{"to be destroyed C", "destroyed ''", "to be activated A",
                             "became current A", "activated A"}));
}

TEST_F(DocManagerReactorTest, AReactorMayOpenADocumentWhenTheLastOneIsGone) {
    Meddler meddler;
    AcApDocument* opened = nullptr;
    AcApDocument* a = host::newDocument();
    told();
    meddler.destroyed = [&](AcApDocument* /*none*/) { opened = host::newDocument(); };
    host::closeDocument(a);
    ASSERT_NE(opened, nullptr);
    EXPECT_EQ(acDocManager()->curDocument(), opened);
    EXPECT_EQ(acdbHostApplicationServices()->workingDatabase(), opened->database());
    EXPECT_EQ(acDocManager()->documentCount(), 1);
}

TEST_F(DocManagerReactorTest, AReactorMayCloseTheNextDocumentAfterADestruction) {
    Meddler meddler;
    AcApDocument* a = host::newDocument();
    AcApDocument* b = host::newDocument();
    AcApDocument* c = host::newDocument();
    meddler.destroyed = [&](AcApDocument* /*none*/) { host::closeDocument(b); };
    host::closeDocument(c);
    EXPECT_EQ(acDocManager()->curDocument(), a);
    EXPECT_EQ(acDocManager()->documentCount(), 1);
}

TEST_F(DocManagerReactorTest, ADocumentClosedAtItsCreationIsNotEntered) {
    Meddler meddler;
    AcApDocument* a = host::newDocument();
    told();
    meddler.created = [](AcApDocument* d) { host::closeDocument(d); };
    EXPECT_EQ(host::newDocument(), nullptr);
    EXPECT_EQ(acDocManager()->curDocument(), a);
    EXPECT_EQ(told(),
              (Lines{"create started B", "created B", "to be destroyed B", "destroyed ''"}));
    meddler.created = [](AcApDocument* d) { host::closeDocument(d); };
    std::string error;
    const std::string path = TKVLT_EXAMPLES_DIR "/town.dxf";
    EXPECT_EQ(host::openDocument(path, error), nullptr);
    EXPECT_EQ(error, path + ": cannot be opened: it was closed while its opening was being told");
    EXPECT_EQ(acDocManager()->documentCount(), 1);
}

TEST_F(DocManagerReactorTest, ADocumentClosedBeforeItsActivationIsNotEntered) {
    Meddler meddler;
    AcApDocument* a = host::newDocument();
    AcApDocument* b = host::newDocument();
    meddler.toBeActivated = [](AcApDocument* d) { host::closeDocument(d); };
    EXPECT_EQ(acDocManager()->activateDocument(a), Acad::eInvalidInput);
    EXPECT_EQ(acDocManager()->curDocument(), b);
    meddler.toBeDeactivated = [](AcApDocument* d) { host::closeDocument(d); };
    AcApDocument* c = host::newDocument();
    EXPECT_EQ(acDocManager()->curDocument(), c);
    EXPECT_EQ(acDocManager()->documentCount(), 1);
}

TEST_F(DocManagerReactorTest, ADocumentClosedAsItBecomesCurrentIsNotToldOfAnyMore) {
    AcApDocument* a = host::newDocument();
    acDocManager()->removeReactor(&witness_);
    Meddler meddler;
    Witness second; // told behind the meddler
    acDocManager()->addReactor(&second);
    AcApDocument* b = nullptr;
    meddler.becameCurrent = [&](AcApDocument* d) { host::closeDocument(b = d); };
    second.letters[a] = 'A';
    EXPECT_EQ(host::newDocument(), nullptr);
    EXPECT_NE(b, nullptr);
    EXPECT_EQ(acDocManager()->curDocument(), a);
    EXPECT_EQ(second.lines, (Lines{"create started B", "created B", "to be deactivated A",
                                   "to be activated B", "to be destroyed B", "destroyed ''",
                                   "to be activated A", "became current A", "activated A"}));
}

TEST_F(DocManagerReactorTest, ADocumentClosedAtItsOwnClosingGoesOnce) {
    Meddler meddler;
    AcApDocument* a = host::newDocument();
    told();
    meddler.toBeDestroyed = [](AcApDocument* d) { host::closeDocument(d); };
    host::closeDocument(a);
    EXPECT_EQ(acDocManager()->documentCount(), 0);
    EXPECT_EQ(told(), (Lines{"to be destroyed A", "to be destroyed A", "destroyed ''",
                             "became current -"}));
}

} // namespace
