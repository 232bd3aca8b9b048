#pragma once

#include "database/AcDbHandle.h"
#include "database/AcDbObject.h"

#include <cstdint>
#include <memory>
#include <vector>

namespace host_db {

/// The objects of one database by their place and by their handle.
///
/// A place may be reserved for a handle before its object is there, so that references to objects
/// further on in a file can be made at once.
class ObjectTable {
public:
    static constexpr std::uint32_t kNone = 0xFFFFFFFFU;

    /// The place of a handle, kNone when it was never named.
    std::uint32_t find(std::uint64_t handle) const;
    /// The place of a handle, reserved now when it is new. `handle` is not 0.
    std::uint32_t reserve(std::uint64_t handle);
    /// A new place without a handle yet.
    std::uint32_t append();
    /// Gives a place without a handle one that no place has.
    void assignHandle(std::uint32_t place, std::uint64_t handle);
    /// Puts the object into its place, which must be vacant.
    void fill(std::uint32_t place, std::unique_ptr<AcDbObject> object);
    /// Takes the object out; the place is vacant again.
    std::unique_ptr<AcDbObject> take(std::uint32_t place);
    /// Takes the handle from a place, which is not used again; the handle may get another place.
    void forgetHandle(std::uint32_t place);
    /// Marks a vacant place as used by something that is no object here.
    void claim(std::uint32_t place) { claimed_[place] = true; }
    /// Neither an object nor a claim is there.
    bool isVacant(std::uint32_t place) const {
        return slots_[place].object == nullptr && !claimed_[place];
    }
    /// nullptr for a place out of range or vacant.
    AcDbObject* at(std::uint64_t place) const {
        return place < slots_.size() ? slots_[place].object.get() : nullptr;
    }
    /// 0 for a place out of range or without a handle.
    std::uint64_t handleAt(std::uint64_t place) const {
        return place < slots_.size() ? slots_[place].handle : 0;
    }
    std::size_t size() const { return slots_.size(); }

private:
    struct Slot {
        std::unique_ptr<AcDbObject> object;
        std::uint64_t handle = 0;
    };

    std::size_t bucketOf(std::uint64_t handle) const;
    void enterBucket(std::uint32_t place);

    std::vector<Slot> slots_;
    std::vector<bool> claimed_;
    std::size_t handles_ = 0;
    /// Open addressing over places plus one, 0 for a free bucket: four bytes for each object.
    std::vector<std::uint32_t> buckets_;
};

} // namespace host_db
