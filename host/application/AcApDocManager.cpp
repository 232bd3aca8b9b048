#include "application/AcApDocManager.h"

#include "database/AcDbHostApplicationServices.h"
#include "database/UndoJournal.h"
#include "platform/HostEvents.h"

#include <algorithm>

namespace {

/// Two readers go together, nothing else does.
bool goTogether(AcAp::DocLockMode one, AcAp::DocLockMode other) {
    return one == AcAp::kNotLocked || other == AcAp::kNotLocked ||
           (one == AcAp::kRead && other == AcAp::kRead);
}

const wchar_t* nameOf(AcAp::DocLockMode mode) {
    switch (mode) {
    case AcAp::kAutoWrite:
        return L"kAutoWrite";
    case AcAp::kWrite:
        return L"kWrite";
    case AcAp::kProtectedAutoWrite:
        return L"kProtectedAutoWrite";
    case AcAp::kRead:
        return L"kRead";
    case AcAp::kXWrite:
        return L"kXWrite";
    case AcAp::kNone:
    case AcAp::kNotLocked:
        break;
    }
    return L"kNotLocked";
}

} // namespace

AcApDocManager::~AcApDocManager() = default;

bool AcApDocManager::has(const AcApDocument* document) const {
    return std::any_of(documents_.begin(), documents_.end(),
                       [&](const auto& each) { return each.get() == document; });
}

AcApDocument* AcApDocManager::document(const AcDbDatabase* database) const {
    for (const auto& each : documents_) {
        if (each->database() == database) {
            return each.get();
        }
    }
    return nullptr;
}

AcApDocumentIterator* AcApDocManager::newAcApDocumentIterator() const {
    std::vector<AcApDocument*> documents;
    documents.reserve(documents_.size());
    for (const auto& each : documents_) {
        documents.push_back(each.get());
    }
    return new AcApDocumentIterator(std::move(documents));
}

void AcApDocManager::addReactor(AcApDocManagerReactor* reactor) {
    const bool known = std::find(reactors_.begin(), reactors_.end(), reactor) != reactors_.end();
    if (reactor != nullptr && !known) {
        reactors_.push_back(reactor);
        host::announce(L"reactor added");
    }
}

void AcApDocManager::removeReactor(AcApDocManagerReactor* reactor) {
    if (std::erase(reactors_, reactor) != 0) {
        host::announce(L"reactor removed");
    }
}

template<class Operation, class Argument>
void AcApDocManager::tell(Operation operation, Argument argument) {
    // A reactor may leave, or take others away, while it is told.
    const std::vector<AcApDocManagerReactor*> told = reactors_;
    for (AcApDocManagerReactor* reactor : told) {
        if (std::find(reactors_.begin(), reactors_.end(), reactor) != reactors_.end()) {
            (reactor->*operation)(argument);
        }
    }
}

void AcApDocManager::makeCurrent(AcApDocument* document) {
    if (current_ == document) {
        return;
    }
    if (current_ != nullptr) {
        tell(&AcApDocManagerReactor::documentToBeDeactivated, current_);
    }
    enter(document);
}

void AcApDocManager::enter(AcApDocument* document) {
    if (document != nullptr) {
        tell(&AcApDocManagerReactor::documentToBeActivated, document);
    }
    current_ = document;
    acdbHostApplicationServices()->setWorkingDatabase(document == nullptr ? nullptr
                                                                          : document->database());
    tell(&AcApDocManagerReactor::documentBecameCurrent, document);
    if (document != nullptr) {
        tell(&AcApDocManagerReactor::documentActivated, document);
    }
}

Acad::ErrorStatus AcApDocManager::setCurDocument(AcApDocument* document, AcAp::DocLockMode mode,
                                                 bool /*activate*/) {
    if (!has(document)) {
        return Acad::eInvalidInput;
    }
    makeCurrent(document);
    // The working database can have been set to another one meanwhile.
    acdbHostApplicationServices()->setWorkingDatabase(document->database());
    const bool asksLock = mode != AcAp::kNone && mode != AcAp::kNotLocked;
    return asksLock ? lockDocument(document, mode) : Acad::eOk;
}

Acad::ErrorStatus AcApDocManager::activateDocument(AcApDocument* document) {
    return setCurDocument(document);
}

Acad::ErrorStatus AcApDocManager::lockDocument(AcApDocument* document, AcAp::DocLockMode mode,
                                               const ACHAR* /*globalName*/,
                                               const ACHAR* /*localName*/, bool /*prompt*/) {
    if (!has(document) || mode == AcAp::kNone || mode == AcAp::kNotLocked) {
        return Acad::eInvalidInput;
    }
    if (!goTogether(mode, document->othersLock_)) {
        return Acad::eLockViolation;
    }
    document->locks_.push_back(mode);
    if (host::isListening()) {
        host::announce(std::wstring(L"lock ") + nameOf(mode));
    }
    return Acad::eOk;
}

Acad::ErrorStatus AcApDocManager::lockByAnother(AcApDocument* document, AcAp::DocLockMode mode) {
    if (!has(document) || mode == AcAp::kNone) {
        return Acad::eInvalidInput;
    }
    if (!std::all_of(document->locks_.begin(), document->locks_.end(),
                     [&](AcAp::DocLockMode own) { return goTogether(own, mode); })) {
        return Acad::eLockViolation;
    }
    document->othersLock_ = mode;
    document->database()->setWriteBlocked(mode != AcAp::kNotLocked);
    return Acad::eOk;
}

std::size_t AcApDocManager::lockCount() const {
    std::size_t count = 0;
    for (const auto& each : documents_) {
        count += each->lockCount();
    }
    return count;
}

Acad::ErrorStatus AcApDocManager::unlockDocument(AcApDocument* document) {
    if (!has(document)) {
        return Acad::eInvalidInput;
    }
    if (document->locks_.empty()) {
        return Acad::eLockViolation;
    }
    document->locks_.pop_back();
    host::announce(L"unlock");
    return Acad::eOk;
}

AcApDocument* AcApDocManager::adopt(std::unique_ptr<AcApDocument> document) {
    // From here on what is done to the drawing can be taken back.
    document->database()->undoJournal();
    AcApDocument* added = document.get();
    tell(&AcApDocManagerReactor::documentCreateStarted, added);
    documents_.push_back(std::move(document));
    tell(&AcApDocManagerReactor::documentCreated, added);
    makeCurrent(added);
    return added;
}

bool AcApDocManager::close(AcApDocument* document) {
    if (!has(document)) {
        return false;
    }
    tell(&AcApDocManagerReactor::documentToBeDestroyed, document);
    const bool wasCurrent = current_ == document;
    const CString fileName = document->fileName();
    std::erase_if(documents_, [&](const auto& each) { return each.get() == document; });
    if (wasCurrent) {
        current_ = nullptr;
    }
    tell(&AcApDocManagerReactor::documentDestroyed, static_cast<const ACHAR*>(fileName));
    if (wasCurrent) {
        enter(documents_.empty() ? nullptr : documents_.back().get());
    }
    return true;
}

AcApDocManager* acDocManager() {
    static AcApDocManager manager;
    return &manager;
}
