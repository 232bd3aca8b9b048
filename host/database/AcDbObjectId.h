#pragma once

#include "database/AcDbHandle.h"
#include "platform/AcArray.h"

#include <compare>
#include <cstddef>
#include <cstdint>
#include <functional>

class AcDbDatabase;

/// Identity of an object within this process: the serial number of its database and the object's
/// place in it, packed into one 64-bit value. Zero is the null id.
///
/// An id is a plain value. It stays safe to keep, compare and open after its object was erased and
/// after its database was closed; opening it then fails with a status.
class AcDbObjectId {
public:
    static const AcDbObjectId kNull;

    AcDbObjectId() = default;
    /// Makes the id whose packed value is `value`, as asOldId gives it.
    static AcDbObjectId fromOldId(std::int64_t value);

    bool isNull() const { return value_ == 0; }
    void setNull() { value_ = 0; }
    /// An object lives under this id: its database is open and the object was not erased.
    bool isValid() const;
    /// The object was erased, or is gone with its database. A null id is not erased.
    bool isErased() const;
    std::int64_t asOldId() const { return value_; }
    /// The object's handle, null when the database is gone. Erased objects keep theirs.
    AcDbHandle handle() const;
    /// The open database this id belongs to, nullptr when null or closed.
    AcDbDatabase* database() const;

    friend bool operator==(const AcDbObjectId&, const AcDbObjectId&) = default;
    // The null pointer that the check sees is one that the compiler writes.
    // NOLINTNEXTLINE(modernize-use-nullptr)
    friend std::strong_ordering operator<=>(const AcDbObjectId&, const AcDbObjectId&) = default;

private:
    std::int64_t value_ = 0;
};

using AcDbObjectIdArray = AcArray<AcDbObjectId>;

template<>
struct std::hash<AcDbObjectId> {
    std::size_t operator()(const AcDbObjectId& id) const noexcept {
        return static_cast<std::size_t>(static_cast<std::uint64_t>(id.asOldId()) *
                                        0x9E3779B97F4A7C15ULL);
    }
};
