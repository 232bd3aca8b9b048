#pragma once

#include <string_view>

namespace pipenet {

/// Columns that a UTF-8 text takes in a terminal: two for a wide (East Asian) character, none for
/// a combining one, one for any other.
int textColumns(std::string_view text);

/// Columns of one character.
int characterColumns(char32_t character);

} // namespace pipenet
