#pragma once

#include <cstddef>
#include <utility>

#include "records/CellTable.h"
#include "records/Indices.h"
#include "records/LargeVector.h"

namespace tkvlt {

/// Items with a shape in plan, by the square cell in which the shape's corner lies.
///
/// The table grows with the items, so an answer costs what lies around the place that is asked for,
/// however the items are spread over the plane.
///
/// @tparam Shape has coordinates `CornerX` and `CornerY`, equality, and tells what it `Meets`.
template<class Shape>
class CellGrid {
public:
    /// Without items.
    explicit CellGrid(double cellSize) : table_(cellSize, 0) {}

    void Add(int item, const Shape& shape) {
        if (entries_.size() >= table_.Places()) {
            table_.Double();
            for (std::size_t i = 0; i < entries_.size(); ++i) {
                if (entries_[i].item != kRemoved) {
                    Chain(static_cast<int>(i));
                }
            }
        }
        entries_.push_back({shape, item, CellTable::kNone});
        Chain(static_cast<int>(entries_.size()) - 1);
    }

    /// Removes an item that was added with this shape. Nothing happens when there is none.
    void Remove(int item, const Shape& shape) {
        int* link = &table_.First(PlaceOf(shape));
        while (*link != CellTable::kNone) {
            Entry& entry = entries_[static_cast<std::size_t>(*link)];
            if (entry.item == item && entry.shape == shape) {
                *link = entry.next;
                entry.item = kRemoved;
                return;
            }
            link = &entry.next;
        }
    }

    /// Appends the items that meet `box` and have their corner in `corners`, and perhaps others
    /// that meet `box`, in no order and now and then twice.
    void Collect(const PlanBox& box, const PlanBox& corners, Indices& items) const {
        table_.ForEachPlace(corners, [&](std::size_t place) {
            for (int at = table_.First(place); at != CellTable::kNone;) {
                const Entry& entry = entries_[static_cast<std::size_t>(at)];
                if (entry.shape.Meets(box)) {
                    items.push_back(entry.item);
                }
                at = entry.next;
            }
        });
    }

private:
    static constexpr int kRemoved = -1;

    struct Entry {
        Shape shape;
        int item;
        int next; // in the same place of the table
    };

    std::size_t PlaceOf(const Shape& shape) const {
        return table_.PlaceOf(shape.CornerX(), shape.CornerY());
    }

    /// Puts an entry in front of the chain at its place.
    void Chain(int at) {
        Entry& entry = entries_[static_cast<std::size_t>(at)];
        entry.next = std::exchange(table_.First(PlaceOf(entry.shape)), at);
    }

    CellTable table_;
    LargeVector<Entry> entries_;
};

} // namespace tkvlt
