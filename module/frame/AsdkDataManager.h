#pragma once

#include "frame/CheckedMap.h"
#include "platform.h"

/// Keeps one record for each document that asks for one. It is told by the document manager as long
/// as it lives, and drops a document's record before the document goes.
template<class Data>
class AsdkDataManager : public AcApDocManagerReactor {
public:
    AsdkDataManager() { acDocManager()->addReactor(this); }
    AsdkDataManager(const AsdkDataManager&) = delete;
    AsdkDataManager& operator=(const AsdkDataManager&) = delete;
    ~AsdkDataManager() override {
        acDocManager()->removeReactor(this);
        data_.Clear();
    }

    void documentToBeDestroyed(AcApDocument* document) override { data_.Erase(document); }

protected:
    tkvlt::CheckedMap<AcApDocument*, Data> data_;
};
