#pragma once

#include "database/ResultItems.h"
#include "dxf/DxfTag.h"
#include "dxf/TextDecoder.h"

#include <cstddef>
#include <cstdint>
#include <functional>

namespace host_dxf {

/// Gives the packed id of the object with a handle, 0 for an unknown one.
using HandleResolver = std::function<std::int64_t(std::uint64_t handle)>;

/// Turns groups into the items of a result buffer chain: texts decoded, the three groups of a point
/// joined into one item, object references resolved.
class ItemCollector {
public:
    /// `decoder` and `resolver` must outlive the collector.
    ItemCollector(const TextDecoder& decoder, const HandleResolver& resolver)
        : decoder_(decoder), resolver_(resolver) {}

    /// Appends the group, or completes the point before it. A group of a code that no chain can
    /// hold is left out; it stays in the file's bytes.
    void add(const DxfTag& tag);

    /// Number of items so far.
    std::size_t count() const { return items_.size(); }
    /// The items so far; the collector is empty afterwards.
    host_db::ResultItems take();

private:
    bool completesPoint(const DxfTag& tag);
    host_db::ResultItem itemOf(const DxfTag& tag) const;

    const TextDecoder& decoder_;
    const HandleResolver& resolver_;
    host_db::ResultItems items_;
    int pointCode_ = 0; ///< of the point that may still get coordinates, 0 without one
    int coordinates_ = 0;
};

} // namespace host_dxf
