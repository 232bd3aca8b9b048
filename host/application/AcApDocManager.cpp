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

template<class Operation, class Argument, class Condition>
void AcApDocManager::tellWhile(Condition condition, Operation operation, Argument argument) {
    // A reactor may leave, or take others away, while it is told.
    const std::vector<AcApDocManagerReactor*> told = reactors_;
    for (AcApDocManagerReactor* reactor : told) {
        const bool present =
            std::find(reactors_.begin(), reactors_.end(), reactor) != reactors_.end();
        if (present && condition()) {
            (reactor->*operation)(argument);
        }
    }
}

template<class Operation, class Argument>
void AcApDocManager::tell(Operation operation, Argument argument) {
    tellWhile([] { return true; }, operation, argument);
}

template<class Operation>
bool AcApDocManager::tellOf(AcApDocument* document, Operation operation) {
    const AcApDocument* before = current_;
    const auto unchanged = [&] { return current_ == before && has(document); };
    tellWhile(unchanged, operation, document);
    return unchanged();
}

void AcApDocManager::makeCurrent(AcApDocument* document) {
    if (current_ == document) {
        return;
    }
    const bool left =
        current_ == nullptr || tellOf(current_, &AcApDocManagerReactor::documentToBeDeactivated);
    // What a reactor has brought to the front instead stays there.
    if (left && has(document)) {
        enter(document);
    }
}

void AcApDocManager::enter(AcApDocument* document) {
    if (!tellOf(document, &AcApDocManagerReactor::documentToBeActivated)) {
        return;
    }
    current_ = document;
    acdbHostApplicationServices()->setWorkingDatabase(document->database());
    if (tellOf(document, &AcApDocManagerReactor::documentBecameCurrent)) {
        tellOf(document, &AcApDocManagerReactor::documentActivated);
    }
}

void AcApDocManager::enterAnother() {
    // A reactor may close the one that would be next.
    while (current_ == nullptr && !documents_.empty()) {
        enter(documents_.back().get());
    }
    if (current_ == nullptr) {
        acdbHostApplicationServices()->setWorkingDatabase(nullptr);
        tellWhile([this] { return current_ == nullptr; },
                  &AcApDocManagerReactor::documentBecameCurrent,
                  static_cast<AcApDocument*>(nullptr));
    }
}

Acad::ErrorStatus AcApDocManager::setCurDocument(AcApDocument* document, AcAp::DocLockMode mode,
                                                 bool /*activate*/) {
    if (!has(document)) {
        return Acad::eInvalidInput;
    }
    makeCurrent(document);
    if (current_ != document) {
        return Acad::eInvalidInput;
    }
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
    if (host::isListening()) {
        host::announce(L"unlock");
    }
    return Acad::eOk;
}

AcApDocument* AcApDocManager::adopt(std::unique_ptr<AcApDocument> document) {
    // From here on what is done to the drawing can be taken back.
    document->database()->undoJournal();
    AcApDocument* added = document.get();
    tell(&AcApDocManagerReactor::documentCreateStarted, added);
    documents_.push_back(std::move(document));
    tellWhile([&] { return has(added); }, &AcApDocManagerReactor::documentCreated, added);
    if (has(added)) {
        makeCurrent(added);
    }
    return has(added) ? added : nullptr;
}

bool AcApDocManager::close(AcApDocument* document) {
    if (!has(document)) {
        return false;
    }
    tellWhile([&] { return has(document); }, &AcApDocManagerReactor::documentToBeDestroyed,
              document);
    if (!has(document)) {
        return true;
    }
    const bool wasCurrent = current_ == document;
    const CString fileName = document->fileName();
    if (wasCurrent) {
        current_ = nullptr;
    }
    std::erase_if(documents_, [&](const auto& each) { return each.get() == document; });
    tell(&AcApDocManagerReactor::documentDestroyed, static_cast<const ACHAR*>(fileName));
    // Unless a reactor has brought one to the front already.
    if (wasCurrent && current_ == nullptr) {
        enterAnother();
    }
    return true;
}

AcApDocManager* acDocManager() {
    static AcApDocManager manager;
    return &manager;
}
