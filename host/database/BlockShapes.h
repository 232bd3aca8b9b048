#pragma once

#include "database/AcDbExtents.h"
#include "database/AcDbObjectId.h"
#include "database/CurvePath.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

class AcDbBlockTableRecord;

namespace host_db {

/// The curves of the block definitions whose boxes were asked for last, so that the boxes of many
/// references to one definition cost one walk through it.
///
/// Only definitions that hold nothing but a few curves, beside attributes and their definitions,
/// are kept; the others are walked each time. What is kept holds as long as no object of the
/// drawing changes.
class BlockShapes {
public:
    /// The pieces of the definition's curves in drawing order, nullptr for a definition that is to
    /// be walked. `revision` is that of the definition's database. The pointer holds until the next
    /// question.
    const std::vector<CurvePiece>* piecesOf(const AcDbBlockTableRecord& block,
                                            std::uint64_t revision);

private:
    struct Shape {
        AcDbObjectId block;
        std::uint64_t revision = 0;
        std::size_t entities = 0; ///< how many the definition had
        bool isPlain = false;
        std::vector<CurvePiece> pieces;
    };
    static constexpr std::size_t kPlaces = 64;

    /// By the definition's place; of two in one place the later stays.
    std::array<Shape, kPlaces> shapes_;
};

} // namespace host_db
