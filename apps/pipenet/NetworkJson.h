#pragma once

#include "AnswerText.h"
#include "NetworkSearch.h"

#include <memory>

namespace pipenet {

/// The outcome of a search as one line of JSON, which is made as it is written: the drawing that
/// was searched must still be open then. When that fails on the way, the part that was written
/// before stays written.
AnswerText networkJson(std::shared_ptr<const SearchOutcome> outcome);

} // namespace pipenet
