#pragma once

#include "database/AcDbObjectId.h"

#include <cstddef>
#include <memory>
#include <unordered_map>
#include <vector>

namespace host_ed {

/// An ordered set of entities. Reading by index costs constant time, and the logarithm of the size
/// once entities were taken out; adding and taking out cost the logarithm of the size.
class SelectionSet {
public:
    SelectionSet();
    /// @param ids not nullptr; a list that others hold too is copied before the set changes it.
    explicit SelectionSet(std::shared_ptr<std::vector<AcDbObjectId>> ids);

    std::size_t size() const { return count_; }
    /// `index` is below size().
    AcDbObjectId at(std::size_t index) const;
    bool contains(AcDbObjectId id) const;
    /// False when it is in the set already.
    bool add(AcDbObjectId id);
    /// False when it is not in the set. The rest keeps its order.
    bool remove(AcDbObjectId id);

private:
    /// The places, for nobody else to see what happens to them.
    std::vector<AcDbObjectId>& ownPlaces();
    void indexPlaces() const;
    void countPlaces();

    /// Places in order; those taken out hold a null id.
    std::shared_ptr<std::vector<AcDbObjectId>> places_;
    std::size_t count_ = 0;
    /// Place of each id, made when the set is first asked by id.
    mutable std::unordered_map<AcDbObjectId, std::size_t> placeOf_;
    /// Sums of living places as a binary indexed tree, made when an id is first taken out.
    std::vector<std::size_t> sums_;
};

} // namespace host_ed
