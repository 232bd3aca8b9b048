#pragma once

#include <string>

namespace pipenet {

/// The text with a blank in place of every control character: what people and files name may hold
/// any.
std::string oneLine(std::string text);

/// Writes on standard error. Where that cannot be written nothing is said: the exit status stands.
void say(const std::string& text);

/// Says on standard error, in one line, what the user should know.
void complain(const std::string& text);

} // namespace pipenet
