#pragma once

#include "database/AcDbObject.h"

/// A free list of items kept in a dictionary.
class AcDbXrecord : public AcDbObject {
    ACRX_DECLARE_MEMBERS(AcDbXrecord);

public:
    AcDbXrecord() = default;
    AcRxObject* clone() const override;

    /// Replaces the items by a copy of the chain. eInvalidResBuf, with nothing changed, for codes
    /// 0, 5, 100, 101, 105 or above 998 or of no value, and for brackets (102) not in pairs.
    virtual Acad::ErrorStatus setFromRbChain(const resbuf& chain, AcDbDatabase* database = nullptr);
    /// A new chain of the items, owned by the caller (acutRelRb); nullptr when there are none.
    virtual Acad::ErrorStatus rbChain(resbuf** chain, AcDbDatabase* database = nullptr) const;
    const host_db::ResultItems& items() const { return items_; }

protected:
    AcDbXrecord(const AcDbXrecord&) = default;

private:
    friend class host_db::DatabaseBuilder;

    host_db::ResultItems items_;
};
