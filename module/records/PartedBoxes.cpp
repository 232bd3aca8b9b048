#include "records/PartedBoxes.h"

#include <utility>

namespace tkvlt {

PartedBoxes::PartedBoxes(const std::vector<PlanBox>& wholes, double reach, double crowd)
    : wholes_(static_cast<int>(wholes.size())), reach_(reach), tree_(wholes), lists_(wholes.size()),
      firstPart_(wholes.size(), kNone), strewn_(crowd) {
    ListNear(wholes);
}

/// Two parts come near one another where their wholes do, each of which they may leave by the
/// reach: three reaches in all, and as many once more for what rounding adds to each.
void PartedBoxes::ListNear(const std::vector<PlanBox>& wholes) {
    constexpr std::size_t ahead = 8;
    const LargeVector<int>& items = tree_.Items();
    for (std::size_t i = 0; i < items.size(); ++i) {
        if (i + ahead < items.size()) {
            FetchAhead(wholes[static_cast<std::size_t>(items[i + ahead])]);
        }
        const auto whole = static_cast<std::size_t>(items[i]);
        Indices near;
        tree_.Collect(wholes[whole].Widened(6.0 * reach_), near);
        if (near.size() <= kMostNear) {
            lists_[whole] = {static_cast<std::uint32_t>(near_.size()),
                             static_cast<int>(near.size())};
            near_.insert(near_.end(), near.begin(), near.end());
        }
    }
}

/// Whether a part does not leave its whole by more than the reach.
bool PartedBoxes::IsWithin(const PlanBox& box, const PlanBox& whole) const {
    return whole.minX - reach_ <= box.minX && whole.minY - reach_ <= box.minY &&
           box.maxX <= whole.maxX + reach_ && box.maxY <= whole.maxY + reach_;
}

/// Whether a whole keeps fewer parts than it may.
bool PartedBoxes::HasRoom(int whole) const {
    int kept = 0;
    for (int part = firstPart_[static_cast<std::size_t>(whole)]; part != kNone;
         part = PartAt(part).next) {
        ++kept;
    }
    return kept < kMostParts;
}

void PartedBoxes::AddPart(int whole, const PlanBox& wholeBox, const PlanBox& box) {
    const int part = Size();
    const bool isKept = IsWithin(box, wholeBox) && HasRoom(whole);
    parts_.push_back({FloatBox(box), whole, kNone, isKept});
    if (isKept) {
        parts_.back().next = std::exchange(firstPart_[static_cast<std::size_t>(whole)], part);
    } else {
        strewn_.Add(part, box);
    }
}

void PartedBoxes::RemovePart(int part, const PlanBox& box) {
    if (!PartAt(part).isKept) {
        strewn_.Remove(part, box);
        return;
    }
    int* link = &firstPart_[static_cast<std::size_t>(PartAt(part).whole)];
    while (*link != part) {
        link = &PartAt(*link).next;
    }
    *link = PartAt(part).next;
}

/// Whether what comes near the item is in the list of its whole.
bool PartedBoxes::IsListed(int item) const {
    return ListOf(item).count != kNone && (item < wholes_ || PartAt(item).isKept);
}

void PartedBoxes::CollectLater(int item, const PlanBox& box, Indices& items) const {
    const PlanBox reached = box.Widened(reach_);
    const FloatBox reachedFloat(reached);
    const auto visit = [&](int whole) {
        if (whole > item) {
            items.push_back(whole);
        }
        for (int part = firstPart_[static_cast<std::size_t>(whole)]; part != kNone;
             part = PartAt(part).next) {
            if (part > item && PartAt(part).box.Overlaps(reachedFloat)) {
                items.push_back(part);
            }
        }
    };
    if (IsListed(item)) {
        ForEachNear(ListOf(item), visit);
    } else {
        Indices near;
        tree_.Collect(reached.Widened(reach_), near);
        for (const int whole : near) {
            visit(whole);
        }
    }
    Indices strewn;
    strewn_.Collect(reached, strewn);
    for (const int part : strewn) {
        if (part > item) {
            items.push_back(part);
        }
    }
}

} // namespace tkvlt
