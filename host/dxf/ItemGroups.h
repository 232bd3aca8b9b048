#pragma once

#include "database/ResultItems.h"
#include "dxf/ItemCollector.h"
#include "dxf/RecordEditor.h"

#include <cstddef>
#include <cstdint>
#include <functional>

namespace host_dxf {

/// Gives the handle of the object with a packed id, 0 for one that the file does not hold.
using HandleFinder = std::function<std::uint64_t(std::int64_t packedId)>;

/// How the items of extended data and xrecords are read from groups and written as such.
struct ItemTranslator {
    const TextDecoder& decoder;
    HandleResolver toId;
    HandleFinder toHandle;

    /// Writes the groups of one item; an item without a value gives none.
    void write(const host_db::ResultItem& item, TagWriter& writer) const;
};

/// Changes the groups of a record from index `first` to before `last`, which hold items, so that
/// they hold `wanted`. Items alike at both ends keep their groups. `place` is where groups go when
/// there are none yet.
void changeItems(RecordEditor& editor, const ItemTranslator& translator, std::size_t first,
                 std::size_t last, std::size_t place, const host_db::ResultItems& wanted);

/// Makes the extended data of a record be `wanted`. Sections that did not change keep their groups.
void changeXdata(RecordEditor& editor, const ItemTranslator& translator,
                 const host_db::ResultItems& wanted);

} // namespace host_dxf
