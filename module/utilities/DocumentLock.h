#pragma once

#include "platform.h"

namespace tkvlt {

/// A write lock on the current document for as long as it lives.
class DocumentLock {
public:
    DocumentLock() : document_(acDocManager()->curDocument()) {
        acDocManager()->lockDocument(document_, AcAp::kWrite, nullptr, nullptr, true);
    }
    DocumentLock(const DocumentLock&) = delete;
    DocumentLock& operator=(const DocumentLock&) = delete;
    ~DocumentLock() { acDocManager()->unlockDocument(document_); }

private:
    AcApDocument* document_;
};

} // namespace tkvlt
