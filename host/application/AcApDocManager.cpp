#include "application/AcApDocManager.h"

#include "database/AcDbHostApplicationServices.h"

#include <algorithm>

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

void AcApDocManager::makeCurrent(AcApDocument* document) {
    current_ = document;
    acdbHostApplicationServices()->setWorkingDatabase(document == nullptr ? nullptr
                                                                          : document->database());
}

Acad::ErrorStatus AcApDocManager::setCurDocument(AcApDocument* document, AcAp::DocLockMode mode,
                                                 bool /*activate*/) {
    if (!has(document)) {
        return Acad::eInvalidInput;
    }
    makeCurrent(document);
    return mode == AcAp::kNone ? Acad::eOk : lockDocument(document, mode);
}

Acad::ErrorStatus AcApDocManager::activateDocument(AcApDocument* document) {
    return setCurDocument(document);
}

Acad::ErrorStatus AcApDocManager::lockDocument(AcApDocument* document, AcAp::DocLockMode mode,
                                               const ACHAR* /*globalName*/,
                                               const ACHAR* /*localName*/, bool /*prompt*/) {
    if (!has(document)) {
        return Acad::eInvalidInput;
    }
    document->locks_.push_back(mode);
    return Acad::eOk;
}

Acad::ErrorStatus AcApDocManager::unlockDocument(AcApDocument* document) {
    if (!has(document)) {
        return Acad::eInvalidInput;
    }
    if (document->locks_.empty()) {
        return Acad::eLockViolation;
    }
    document->locks_.pop_back();
    return Acad::eOk;
}

AcApDocument* AcApDocManager::adopt(std::unique_ptr<AcApDocument> document) {
    documents_.push_back(std::move(document));
    makeCurrent(documents_.back().get());
    return current_;
}

bool AcApDocManager::close(AcApDocument* document) {
    if (!has(document)) {
        return false;
    }
    std::erase_if(documents_, [&](const auto& each) { return each.get() == document; });
    if (current_ == document) {
        makeCurrent(documents_.empty() ? nullptr : documents_.back().get());
    }
    return true;
}

AcApDocManager* acDocManager() {
    static AcApDocManager manager;
    return &manager;
}
