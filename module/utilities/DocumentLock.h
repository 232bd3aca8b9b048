#pragma once

#include "platform.h"

namespace tkvlt {

/// A lock on the current document for as long as it lives.
class DocumentLock {
public:
    explicit DocumentLock(AcAp::DocLockMode mode = AcAp::kWrite)
        : document_(acDocManager()->curDocument()) {
        acDocManager()->lockDocument(document_, mode, nullptr, nullptr, true);
    }
    DocumentLock(const DocumentLock&) = delete;
    DocumentLock& operator=(const DocumentLock&) = delete;
    ~DocumentLock() { acDocManager()->unlockDocument(document_); }

private:
    AcApDocument* document_;
};

} // namespace tkvlt
