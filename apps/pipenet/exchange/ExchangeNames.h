#pragma once

#include "exchange/ExchangeNetwork.h"

namespace pipenet {

/// Names nodes and links for a file: the drawing's own number where no other has it in any case of
/// its letters and every format takes it, else the entity's handle; a joint without an entity is
/// J1, J2 and so on. What would stand twice gets _2, _3 and so on. `longest` is how many bytes a
/// name may have.
void nameNetwork(ExchangeNetwork& network, std::size_t longest);

inline constexpr std::size_t kLongestEpanetName = 31;
inline constexpr std::size_t kLongestName = 120; ///< elsewhere

/// Whether a name can stand in an input file of either engine: 1 to `longest` bytes without blanks,
/// control characters, quotes, commas and semicolons, not beginning with a bracket.
bool isLegalName(const std::string& name, std::size_t longest);

} // namespace pipenet
