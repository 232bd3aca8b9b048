#include "database/ObjectTable.h"

#include <utility>

namespace host_db {

std::size_t ObjectTable::bucketOf(std::uint64_t handle) const {
    const std::size_t mask = buckets_.size() - 1;
    // The multiplier spreads the dense runs in which files number their objects.
    auto bucket = static_cast<std::size_t>((handle * 0x9E3779B97F4A7C15ULL) >> 20) & mask;
    while (buckets_[bucket] != 0 && slots_[buckets_[bucket] - 1].handle != handle) {
        bucket = (bucket + 1) & mask;
    }
    return bucket;
}

std::uint32_t ObjectTable::find(std::uint64_t handle) const {
    if (buckets_.empty() || handle == 0) {
        return kNone;
    }
    const std::uint32_t entry = buckets_[bucketOf(handle)];
    return entry == 0 ? kNone : entry - 1;
}

void ObjectTable::enterBucket(std::uint32_t place) {
    ++handles_;
    if (handles_ * 2 > buckets_.size()) {
        buckets_.assign(buckets_.empty() ? 64 : buckets_.size() * 2, 0);
        for (std::uint32_t i = 0; i < slots_.size(); ++i) {
            if (slots_[i].handle != 0) {
                buckets_[bucketOf(slots_[i].handle)] = i + 1;
            }
        }
    }
    buckets_[bucketOf(slots_[place].handle)] = place + 1;
}

std::uint32_t ObjectTable::reserve(std::uint64_t handle) {
    const std::uint32_t known = find(handle);
    if (known != kNone) {
        return known;
    }
    const std::uint32_t place = append();
    assignHandle(place, handle);
    return place;
}

std::uint32_t ObjectTable::append() {
    slots_.emplace_back();
    claimed_.push_back(false);
    return static_cast<std::uint32_t>(slots_.size() - 1);
}

void ObjectTable::assignHandle(std::uint32_t place, std::uint64_t handle) {
    slots_[place].handle = handle;
    enterBucket(place);
}

void ObjectTable::forgetHandle(std::uint32_t place) {
    std::size_t gap = bucketOf(slots_[place].handle);
    const std::size_t mask = buckets_.size() - 1;
    slots_[place].handle = 0;
    --handles_;
    // Entries behind the gap that were pushed on by what stood there move up, each as bucketOf
    // would now find its place.
    buckets_[gap] = 0;
    for (std::size_t at = (gap + 1) & mask; buckets_[at] != 0; at = (at + 1) & mask) {
        const std::uint32_t entry = buckets_[at];
        buckets_[at] = 0;
        buckets_[bucketOf(slots_[entry - 1].handle)] = entry;
    }
}

void ObjectTable::fill(std::uint32_t place, std::unique_ptr<AcDbObject> object) {
    slots_[place].object = std::move(object);
}

std::unique_ptr<AcDbObject> ObjectTable::take(std::uint32_t place) {
    return std::move(slots_[place].object);
}

} // namespace host_db
