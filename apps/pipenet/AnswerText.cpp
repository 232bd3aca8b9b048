#include "AnswerText.h"

namespace pipenet {

void AnswerText::writeTo(const TextSink& sink) const {
    if (write_) {
        write_(sink);
    } else {
        sink(whole_);
    }
}

} // namespace pipenet
