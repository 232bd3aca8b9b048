#pragma once

#include "AnswerText.h"
#include "Timing.h"

#include <string>

namespace pipenet {

/// What a command found, as text for standard output.
struct Answer {
    AnswerText text;     ///< the whole answer with its line end, without the timing
    bool isJson = false; ///< the text is one JSON object on a line
    std::string refusal; ///< a sentence for standard error; empty when the module said yes
    std::string file;    ///< where the text goes instead of standard output, empty for nowhere else
    Timing timing;
};

/// Writes the text, with the timing put into it when that is wanted.
void writeAnswer(const Answer& answer, bool timing, const TextSink& sink);

} // namespace pipenet
