#pragma once

#include "application/AcApDocManagerReactor.h"
#include "application/AcApDocument.h"
#include "database/AcadErrorStatus.h"

#include <memory>
#include <vector>

class AcApDocumentIterator;

/// The open documents of the process and which of them is current.
class AcApDocManager {
public:
    AcApDocManager() = default;
    AcApDocManager(const AcApDocManager&) = delete;
    AcApDocManager& operator=(const AcApDocManager&) = delete;
    ~AcApDocManager();

    /// The document being worked on; nullptr when none is open.
    AcApDocument* curDocument() const { return current_; }
    /// The document in front, which is the current one here.
    AcApDocument* mdiActiveDocument() const { return current_; }
    /// The document of a database; nullptr when it has none.
    AcApDocument* document(const AcDbDatabase* database) const;
    /// The document is one of the open ones; any pointer may be asked about.
    bool isOpen(const AcApDocument* document) const { return has(document); }
    int documentCount() const { return static_cast<int>(documents_.size()); }
    /// A walk over the open documents, deleted by the caller.
    AcApDocumentIterator* newAcApDocumentIterator() const;

    /// Makes an open document the current one and its database the working one; the lock is taken
    /// when it is not kNone. eInvalidInput for a foreign pointer, and when a reactor that is told
    /// of the change closes the document or brings another one to the front.
    Acad::ErrorStatus setCurDocument(AcApDocument* document, AcAp::DocLockMode mode = AcAp::kNone,
                                     bool activate = false);
    Acad::ErrorStatus activateDocument(AcApDocument* document);

    /// Adds a reactor, which is told after those added before and must be taken away before it
    /// goes. A null pointer and one that is added already do nothing.
    void addReactor(AcApDocManagerReactor* reactor);
    /// Takes a reactor away; one that is not added does nothing.
    void removeReactor(AcApDocManagerReactor* reactor);
    std::size_t reactorCount() const { return reactors_.size(); }

    /// Takes a lock, to be given back as often as it was taken. Locks of one's own never stand in
    /// each other's way; against a lock of another (see lockByAnother) only kRead is had
    /// while that one is kRead too, else eLockViolation. kNone and kNotLocked are no locks:
    /// eInvalidInput. Command names and `prompt` have no effect.
    Acad::ErrorStatus lockDocument(AcApDocument* document, AcAp::DocLockMode mode = AcAp::kWrite,
                                   const ACHAR* globalName = nullptr,
                                   const ACHAR* localName = nullptr, bool prompt = true);
    /// Gives the lock taken last back. eLockViolation when none is held.
    Acad::ErrorStatus unlockDocument(AcApDocument* document);

    /// Plays another user of the document who takes a lock, or gives it back with kNotLocked. While
    /// it is held, opening an object of the drawing for write gives eLockViolation.
    /// eLockViolation when a lock of one's own stands in the way.
    Acad::ErrorStatus lockByAnother(AcApDocument* document, AcAp::DocLockMode mode);

    /// Locks held and not given back, over all documents.
    std::size_t lockCount() const;

    /// Takes a document in and makes it the current one. Reactors are told of its creation, then of
    /// the change of the current document. nullptr when one of them has closed it again.
    AcApDocument* adopt(std::unique_ptr<AcApDocument> document);
    /// Closes a document and deletes its drawing; when it was the current one, the one opened last
    /// of the rest becomes current, unless a reactor has brought another to the front by then.
    /// Reactors are told before and after, and must not close it themselves; when they are told
    /// after, no document is current if it was this one. False for a foreign pointer.
    bool close(AcApDocument* document);

private:
    bool has(const AcApDocument* document) const;
    /// Leaves the current document for another; nothing when it is that one already.
    void makeCurrent(AcApDocument* document);
    /// Makes an open document the current one after the former has been left.
    void enter(AcApDocument* document);
    /// After the current document has gone: enters the one opened last, or none.
    void enterAnother();
    /// Tells the reactors one after the other, as long as the condition holds.
    template<class Operation, class Argument, class Condition>
    void tellWhile(Condition condition, Operation operation, Argument argument);
    template<class Operation, class Argument>
    void tell(Operation operation, Argument argument);
    /// Tells of an open document until a reactor closes it or changes which one is current; false
    /// when one did.
    template<class Operation>
    bool tellOf(AcApDocument* document, Operation operation);

    std::vector<std::unique_ptr<AcApDocument>> documents_;
    std::vector<AcApDocManagerReactor*> reactors_;
    AcApDocument* current_ = nullptr;
};

/// Walks the documents that were open when the walk began.
class AcApDocumentIterator {
public:
    explicit AcApDocumentIterator(std::vector<AcApDocument*> documents)
        : documents_(std::move(documents)) {}

    bool done() const { return index_ >= documents_.size(); }
    void step() { ++index_; }
    /// nullptr past the end.
    AcApDocument* document() const { return done() ? nullptr : documents_[index_]; }

private:
    std::vector<AcApDocument*> documents_;
    std::size_t index_ = 0;
};

/// The document manager of the process.
AcApDocManager* acDocManager();
