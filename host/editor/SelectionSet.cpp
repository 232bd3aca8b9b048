#include "editor/SelectionSet.h"

#include <bit>

namespace host_ed {

SelectionSet::SelectionSet() : SelectionSet(std::make_shared<std::vector<AcDbObjectId>>()) {}

SelectionSet::SelectionSet(std::shared_ptr<std::vector<AcDbObjectId>> ids)
    : places_(std::move(ids)), count_(places_->size()) {}

std::vector<AcDbObjectId>& SelectionSet::ownPlaces() {
    if (places_.use_count() > 1) {
        places_ = std::make_shared<std::vector<AcDbObjectId>>(*places_);
    }
    return *places_;
}

void SelectionSet::indexPlaces() const {
    if (!placeOf_.empty()) {
        return;
    }
    placeOf_.reserve(places_->size());
    for (std::size_t i = 0; i < places_->size(); ++i) {
        if (!(*places_)[i].isNull()) {
            placeOf_.emplace((*places_)[i], i);
        }
    }
}

void SelectionSet::countPlaces() {
    sums_.assign(places_->size() + 1, 0);
    for (std::size_t i = 1; i < sums_.size(); ++i) {
        sums_[i] += (*places_)[i - 1].isNull() ? 0 : 1;
        const std::size_t next = i + (i & (~i + 1));
        if (next < sums_.size()) {
            sums_[next] += sums_[i];
        }
    }
}

AcDbObjectId SelectionSet::at(std::size_t index) const {
    if (sums_.empty()) {
        return (*places_)[index];
    }
    // The first place with more living ones up to it than `index`.
    std::size_t place = 0;
    std::size_t before = index;
    for (std::size_t step = std::bit_floor(places_->size()); step > 0; step /= 2) {
        if (place + step < sums_.size() && sums_[place + step] <= before) {
            place += step;
            before -= sums_[place];
        }
    }
    return (*places_)[place];
}

bool SelectionSet::contains(AcDbObjectId id) const {
    indexPlaces();
    return placeOf_.count(id) != 0;
}

bool SelectionSet::add(AcDbObjectId id) {
    if (contains(id)) {
        return false;
    }
    placeOf_.emplace(id, places_->size());
    ownPlaces().push_back(id);
    ++count_;
    if (!sums_.empty()) {
        countPlaces();
    }
    return true;
}

bool SelectionSet::remove(AcDbObjectId id) {
    indexPlaces();
    const auto it = placeOf_.find(id);
    if (it == placeOf_.end()) {
        return false;
    }
    const std::size_t place = it->second;
    placeOf_.erase(it);
    if (sums_.empty()) {
        countPlaces();
    }
    ownPlaces()[place].setNull();
    --count_;
    for (std::size_t i = place + 1; i < sums_.size(); i += i & (~i + 1)) {
        --sums_[i];
    }
    return true;
}

} // namespace host_ed
