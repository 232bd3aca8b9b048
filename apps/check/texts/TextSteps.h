#pragma once

#include "CheckContext.h"
#include "texts/RunReading.h"

#include <unordered_set>

namespace pipenet {

/// Pipes of which the search reads a value that nobody wrote.
struct UnreadablePipes {
    std::unordered_set<AcDbObjectId> heights;
    std::unordered_set<AcDbObjectId> slopes;
    std::unordered_set<AcDbObjectId> diameters;
    std::unordered_set<AcDbObjectId> flows;
};

/// What the steps have in common.
struct TextCheck {
    const CheckContext& context;
    CheckReport& report;
    std::vector<RunReading> runs; ///< of all networks, in their order
    UnreadablePipes unreadable;
};

// The steps on single entities. Those that say so note what cannot be read.

/// unknown-system: a system of which the settings do not tell how it flows. One finding a system.
void checkSystemNames(TextCheck& check);
/// missing-key: a pipe, well or tank without a text that the search reads. One finding an entity.
/// Notes.
void checkMissingKeys(TextCheck& check);
/// missing-key: a curve or block with texts of a pipe, well or tank that lacks the text by which
/// the search knows it. One finding an entity.
void checkStrayKeys(TextCheck& check);
/// number-not-whole: a number text of which the search reads only a part, or nothing. One finding a
/// text. Notes.
void checkNumberTexts(TextCheck& check);
/// flow-text: a pipe whose flow text is neither of the two that mean something. Notes.
void checkFlowTexts(TextCheck& check);
/// duplicate-number: wells of one system with the same number. One finding a number.
void checkWellNumbers(TextCheck& check);

// The steps on the networks, which pass over what cannot be read.

/// pieces-differ: pipes of one run that do not agree about size, material or flow, of which the run
/// has those of one alone. One finding a run.
void checkPieces(TextCheck& check);
/// heights-against-flow: a gravity run with pipes that rise in the direction of their water. One
/// finding a run.
void checkHeights(TextCheck& check);
/// slope-disagrees: a run or loose pipe whose slope text gives another fall than its heights. One
/// finding a run.
void checkSlopes(TextCheck& check);
/// diameter-shrinks: a node of a gravity network from which the water leaves by a smaller pipe than
/// it came by. One finding a node.
void checkDiameters(TextCheck& check);

/// The figures with which each system closes.
void addSystemFigures(TextCheck& check);

} // namespace pipenet
