#pragma once

#include "database/AcDbEntity.h"

#include <cstddef>
#include <vector>

/// Walks a fixed list of objects taken when it was made; erased ones are left out.
class AcDbObjectIterator {
public:
    explicit AcDbObjectIterator(std::vector<AcDbObjectId> ids) : ids_(std::move(ids)) {}

    void start() { index_ = 0; }
    bool done() const { return index_ >= ids_.size(); }
    void step() { ++index_; }
    /// Null past the end.
    AcDbObjectId objectId() const { return done() ? AcDbObjectId() : ids_[index_]; }

private:
    std::vector<AcDbObjectId> ids_;
    std::size_t index_ = 0;
};
